#pragma once

#include <QList>
#include <QPair>

namespace dg {

// What stands where on the recap: captions are elements of "Label1", figures of "lblRecap".

/// Headings of the blocks, elements of "Label2".
inline constexpr int kAssetHeading = 0;
inline constexpr int kLiabilityHeading = 1;
inline constexpr int kProfitHeading = 2;

/// Captions and figures of the lists, from the top.
inline QList<QPair<int, int>> recapAssets() {
  return {{1, 0}, {7, 6}, {5, 4}, {2, 1}, {12, 11}, {13, 12},
          {3, 2}, {4, 3}, {6, 5}, {8, 7}, {11, 10}};
}
inline QList<QPair<int, int>> recapLiabilities() {
  return {{9, 8}, {10, 9}};
}
/// Figures of the asset block that are no assets but the day's takings.
inline constexpr int kTodaysSales = 7;
inline constexpr int kTodaysCash = 10;

/// The table of sales and profit: month, year and last year by sales, cost and rate.
inline constexpr int kProfitRows = 3;
inline constexpr int kProfitColumns = 3;
inline constexpr int kProfitRowCaptions[kProfitRows] = {17, 18, 19};
inline constexpr int kProfitColumnCaptions[kProfitColumns] = {14, 15, 16};
constexpr int profitLabel(int row, int column) {
  constexpr int kFirst = 13;
  return kFirst + row * kProfitColumns + column;
}

}  // namespace dg
