#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "forms/form.h"
#include "records/line_builder.h"
#include "records/shop.h"
#include "records/shop_lines.h"

namespace dg {

/// "Shop Job Detail": one job with its customer, equipment, people, call dates, warranty state and
/// lines, a filter by request, and for completed jobs a box of totals.
class frmShopDetail final : public Form {
 public:
  frmShopDetail();

  /// Fills the window for a job by number. Raises what the engine raises, and 91 when the job has
  /// no lines because its record cannot be read.
  void showJob(std::int32_t number);

  std::array<Label*, 9> lblCDisp;     ///< customer
  std::array<Label*, 6> lblCallDate;  ///< three dates, then their three results
  std::array<Label*, 2> lblMan;       ///< mechanic, counterman
  std::array<Label*, 5> lblEquip;     ///< name, type, two serial numbers, meter
  std::array<Label*, 2> lblWarr;      ///< whether under warranty, first reference
  std::array<Label*, 5> lblRecap;     ///< totals
  Frame& Frame5;                      ///< around the totals; for completed jobs only
  Label& lblRequest;
  ComboBox& cmbRequest;
  Grid& grdShopDetail;

 private:
  Frame& addFrames();
  void showCustomer(std::int32_t account);
  void showCalls(const clsShop& job, const std::string& record);
  void showPeople(const clsShop& job);
  void showEquipment(const clsShop& job);
  void showLines();
  void showTotals(const clsShopDetail& detail);
  void addLine(const DisplayLine& line);
  void cmbRequest_Click();

  std::shared_ptr<const DisplayLines> lines_;
};

/// Opens the window for a job. Raises what the engine raises.
void showShopDetail(std::int32_t job);

}  // namespace dg
