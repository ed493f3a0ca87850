#pragma once

#include <QByteArray>

class QWidget;

namespace dg {

class frmTRVN;
class HistoryKeeper;
class TodaysWork;

/// The page of the store on show, from what is loaded: HTML.
QByteArray morningReport(const frmTRVN& main, const TodaysWork& work, const HistoryKeeper& keeper);

/// Asks whether to show it in the browser or to save it, and does so. For the browser it is kept in
/// a file of the user's own, which the next one replaces.
void offerMorningReport(QWidget* parent, const frmTRVN& main, const TodaysWork& work,
                        const HistoryKeeper& keeper);

}  // namespace dg
