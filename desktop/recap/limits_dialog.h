#pragma once

#include <QDialog>
#include <map>

#include "insight/attention.h"

class QSpinBox;

namespace dg {

/// The limits of the kinds that have one, in days.
class LimitsDialog : public QDialog {
  Q_OBJECT

 public:
  explicit LimitsDialog(const AttentionLimits& limits, QWidget* parent = nullptr);

  /// The limits as they stand in the dialog.
  AttentionLimits limits() const;
  void setLimits(const AttentionLimits& limits);

 private:
  std::map<AttentionKind, QSpinBox*> boxes_;
};

}  // namespace dg
