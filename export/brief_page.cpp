#include <algorithm>

#include "export/brief.h"
#include "export/brief_style.h"
#include "export/html_writer.h"
#include "export/line_drawing.h"
#include "export/printable.h"
#include "history/sparkline.h"
#include "platform/values/format.h"
#include "shell/splash.h"

namespace dg {

namespace {

constexpr std::size_t kLargestRows = 5;
constexpr std::size_t kLineCharacters = 24;
constexpr RecapBlock kBlocks[] = {RecapBlock::kAssets, RecapBlock::kLiabilities,
                                  RecapBlock::kProfit};
constexpr std::string_view kDollars = "$#,###,##0";

using Attributes = HtmlWriter::Attributes;

const Attributes kNumber{{"class", "n"}};
const Attributes kColumnHead{{"scope", "col"}};
const Attributes kNumberHead{{"scope", "col"}, {"class", "n"}};
const Attributes kRowHead{{"scope", "row"}};

std::string counted(std::size_t count, std::string_view one, std::string_view more) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : more);
}

std::string plainHeading(RecapBlock block) {
  std::string text(recapHeading(block).text);
  // Two ampersands are a label's way to show one.
  if (const std::size_t place = text.find("&&"); place != std::string::npos) text.erase(place, 1);
  return text;
}

/// The page in the making. Headings of a store's sections have one level more in a group.
class Page {
 public:
  Page(const Brief& brief, BriefLines lines) : brief_(brief), lines_(lines) {}

  std::string write();

 private:
  std::string heading(int level) const {
    return "h" + std::to_string(level + (brief_.isGroup ? 1 : 0));
  }
  void head();
  void group();
  void groupTable(RecapBlock block, const std::vector<StoreRecap>& stores,
                  const GroupRecap& totals);
  void store(const BriefStore& store);
  void troubles(const BriefStore& store);
  void recap(const BriefStore& store);
  void recapTable(const BriefStore& store, RecapBlock block);
  void changeCell(const BriefStore& store, const RecapFigure& figure);
  void attention(const BriefStore& store);
  void kind(const KindResult& result);
  void rows(const KindResult& result);
  void ageing(const BriefStore& store);
  void days(const BriefStore& store);
  /// `notes`: what stands below the names, in their order; may be shorter.
  void heads(const std::vector<std::string>& names, const std::vector<std::string>& notes = {});

  const Brief& brief_;
  BriefLines lines_;
  HtmlWriter html_;
};

std::string Page::write() {
  html_.markup("<!DOCTYPE html>\n");
  {
    const HtmlScope document(html_, "html", {{"lang", "en"}});
    head();
    const HtmlScope body(html_, "body");
    {
      const HtmlScope header(html_, "header");
      const std::string store = brief_.isGroup ? counted(brief_.stores.size(), "store", "stores")
                                               : terminalText(brief_.stores.front().recap.name);
      html_.element("h1", store);
      html_.element("p",
                    "Morning report. Figures as of " + brief_.moment.shortDateText() + " " +
                        brief_.moment.longTimeText(),
                    {{"class", "quiet"}});
    }
    {
      const HtmlScope main(html_, "main");
      if (brief_.isGroup) group();
      for (const BriefStore& each : brief_.stores)
        store(each);
    }
    const HtmlScope footer(html_, "footer");
    html_.element("p", std::string(kProgramName) + " " + versionText(), {{"class", "quiet"}});
  }
  return html_.take();
}

void Page::head() {
  const HtmlScope head(html_, "head");
  html_.single("meta", {{"charset", "utf-8"}});
  html_.single("meta", {{"http-equiv", "Content-Security-Policy"}, {"content", kPagePolicy}});
  html_.single("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
  html_.single("meta", {{"name", "color-scheme"}, {"content", "light dark"}});
  html_.single("meta", {{"name", "referrer"}, {"content", "no-referrer"}});
  html_.element("title", briefTitle(brief_));
  html_.open("style").markup(kPageStyle).close();
}

void Page::heads(const std::vector<std::string>& names, const std::vector<std::string>& notes) {
  const HtmlScope head(html_, "thead");
  const HtmlScope row(html_, "tr");
  for (std::size_t i = 0; i < names.size(); ++i) {
    const HtmlScope cell(html_, "th", i == 0 ? kColumnHead : kNumberHead);
    html_.text(names[i]);
    if (i < notes.size() && !notes[i].empty()) html_.element("small", notes[i]);
  }
}

void Page::group() {
  const HtmlScope section(html_, "section");
  html_.element("h2", "All stores");
  std::vector<StoreRecap> stores;
  for (const BriefStore& each : brief_.stores)
    stores.push_back(each.recap);
  html_.element("p", "The totals cover " + std::to_string(readableStores(stores)) + " of " +
                         counted(stores.size(), "store.", "stores."));
  const GroupRecap totals = groupRecap(stores);
  for (const RecapBlock block : kBlocks)
    groupTable(block, stores, totals);
}

void Page::groupTable(RecapBlock block, const std::vector<StoreRecap>& stores,
                      const GroupRecap& totals) {
  std::vector<std::string> names{"Figure"};
  std::vector<std::string> storeNames{""};
  for (const StoreRecap& each : stores) {
    storeNames.push_back(terminalText(each.name));
    names.push_back(terminalText(each.directory));
  }
  names.insert(names.end(), {"Total", "Stores"});
  const HtmlScope table(html_, "table", {{"class", "wide"}});
  html_.element("caption", plainHeading(block));
  heads(names, storeNames);
  const HtmlScope body(html_, "tbody");
  for (const RecapFigure& figure : recapFigures(block)) {
    const HtmlScope row(html_, "tr");
    html_.element("th", figure.name, kRowHead);
    const auto cell = [&](std::size_t column, std::string_view text) {
      html_.element("td", text, {{"class", "n"}, {"data-head", names[column]}});
    };
    for (std::size_t i = 0; i < stores.size(); ++i) {
      const StoreFigure& own = stores[i].of(figure);
      std::string text = stores[i].error.empty() ? terminalText(own.caption) : "not read";
      if (own.incomplete) text += " (incomplete)";
      cell(i + 1, text);
    }
    const GroupFigure& total = totals[static_cast<std::size_t>(figure.index())];
    cell(stores.size() + 1, total.amount ? amountText(*total.amount, figure.kind) : "");
    cell(stores.size() + 2, std::to_string(total.stores) + " of " + std::to_string(stores.size()));
  }
}

void Page::store(const BriefStore& store) {
  const HtmlScope section(html_, "section");
  if (brief_.isGroup) {
    const std::string name = terminalText(store.recap.name);
    const std::string directory = terminalText(store.recap.directory);
    html_.element("h2", name.empty() ? directory : name + " (" + directory + ")");
  }
  troubles(store);
  if (!store.recap.error.empty()) return;
  recap(store);
  attention(store);
  ageing(store);
  days(store);
}

void Page::troubles(const BriefStore& store) {
  std::vector<std::string> lines;
  if (!store.recap.error.empty()) lines.push_back("Could not be read: " + store.recap.error);
  lines.insert(lines.end(), store.troubles.begin(), store.troubles.end());
  if (lines.empty()) return;
  const HtmlScope box(html_, "div", {{"class", "trouble"}, {"role", "note"}});
  html_.element("strong", "Not all figures can be relied on");
  const HtmlScope list(html_, "ul");
  for (const std::string& line : lines)
    html_.element("li", terminalText(line));
}

void Page::recap(const BriefStore& store) {
  html_.element(heading(2), "Recap");
  const HtmlScope columns(html_, "div", {{"class", "blocks"}});
  for (const RecapBlock block : kBlocks)
    recapTable(store, block);
}

void Page::recapTable(const BriefStore& store, RecapBlock block) {
  const HtmlScope table(html_, "table");
  html_.element("caption", plainHeading(block));
  std::vector<std::string> names{"Figure", "Amount"};
  if (!store.changes.empty()) names.emplace_back("Change");
  heads(names);
  const HtmlScope body(html_, "tbody");
  for (const RecapFigure& figure : recapFigures(block)) {
    const StoreFigure& own = store.recap.of(figure);
    const HtmlScope row(html_, "tr");
    html_.element("th", figure.name, kRowHead);
    html_.element("td", terminalText(own.caption), {{"class", own.error ? "n bad" : "n"}});
    if (!store.changes.empty()) changeCell(store, figure);
  }
}

void Page::changeCell(const BriefStore& store, const RecapFigure& figure) {
  const HtmlScope cell(html_, "td", kNumber);
  const auto change = std::ranges::find(store.changes, figure.figure, &RecapChange::figure);
  if (change == store.changes.end()) return;
  const char* tone = change->tone == ChangeTone::kGood  ? "good"
                     : change->tone == ChangeTone::kBad ? "bad"
                                                        : "";
  html_.element("span", changeLabel(*change), {{"class", tone}});
  html_.element("small", "since " + change->change.from.day.shortDateText());
}

void Page::attention(const BriefStore& store) {
  html_.element(heading(2), "What needs attention");
  std::string quiet;
  {
    const HtmlScope columns(html_, "div", {{"class", "cols"}});
    for (const KindResult& result : store.kinds) {
      if (result.rows.empty() && result.isWhole()) {
        quiet += (quiet.empty() ? "" : ", ") + std::string(entryOf(result.kind).caption);
      } else {
        kind(result);
      }
    }
  }
  if (!quiet.empty()) html_.element("p", "Nothing to do: " + quiet + ".", {{"class", "quiet"}});
}

void Page::kind(const KindResult& result) {
  const HtmlScope section(html_, "section");
  html_.element(heading(3), entryOf(result.kind).caption, {{"class", "kind"}});
  if (!result.error.empty()) {
    html_.element("p", "Could not be read: " + terminalText(result.error), {{"class", "bad"}});
    return;
  }
  html_.element("p", counted(result.rows.size(), "item, ", "items, ") + moneyText(result.amount));
  html_.element("p", meaningOf(result), {{"class", "quiet"}});
  if (!result.isWhole()) html_.element("p", "Could not be read completely.", {{"class", "bad"}});
  if (!result.rows.empty()) rows(result);
}

void Page::rows(const KindResult& result) {
  std::vector<const AttentionRow*> largest;
  for (const AttentionRow& row : result.rows)
    largest.push_back(&row);
  std::ranges::stable_sort(largest, std::ranges::greater{},
                           [](const AttentionRow* row) { return row->amount; });
  const std::size_t more = largest.size() > kLargestRows ? largest.size() - kLargestRows : 0;
  largest.resize(largest.size() - more);
  {
    const HtmlScope table(html_, "table");
    heads({"The largest", "Days", "Amount"});
    const HtmlScope body(html_, "tbody");
    for (const AttentionRow* row : largest) {
      const HtmlScope line(html_, "tr");
      html_.open("th", kRowHead).text(terminalText(row->what));
      if (!row->who.empty()) html_.element("small", terminalText(row->who));
      html_.close();
      html_.element("td", row->days ? std::to_string(*row->days) : "", kNumber);
      html_.element("td", moneyText(row->amount), kNumber);
    }
  }
  if (more > 0) html_.element("p", "and " + std::to_string(more) + " more", {{"class", "quiet"}});
}

void Page::ageing(const BriefStore& store) {
  html_.element(heading(2), "How old the open work is");
  std::vector<std::string> names{"Days"};
  for (const std::string_view bucket : kAgeBuckets)
    names.emplace_back(bucket);
  names.emplace_back("Total");
  const HtmlScope table(html_, "table", {{"class", "wide"}});
  heads(names);
  const HtmlScope body(html_, "tbody");
  for (const Ageing& age : store.ageing) {
    const HtmlScope row(html_, "tr");
    html_.element("th", openFamilies()[static_cast<std::size_t>(age.family)].caption, kRowHead);
    if (!age.error.empty()) {
      html_.element("td", "could not be read: " + terminalText(age.error),
                    {{"class", "bad"}, {"colspan", std::to_string(names.size() - 1)}});
      continue;
    }
    const auto cell = [&](std::size_t column, const std::string& text) {
      html_.element("td", text, {{"class", "n"}, {"data-head", names[column]}});
    };
    for (std::size_t i = 0; i < age.buckets.size(); ++i) {
      const Ageing::Bucket& bucket = age.buckets[i];
      cell(i + 1, bucket.count == 0 ? "" : Format(bucket.amount, kDollars));
    }
    cell(names.size() - 1, Format(age.total, kDollars) + (age.isWhole() ? "" : " (incomplete)"));
  }
}

void Page::days(const BriefStore& store) {
  if (store.lines.empty()) return;
  html_.element(heading(2), "Over the kept days");
  const HtmlScope lines(html_, "div", {{"class", "lines"}});
  for (const FigureHistory& line : store.lines) {
    const HtmlScope figure(html_, "figure");
    if (lines_ == BriefLines::kDrawings) {
      drawLine(html_, line);
    } else {
      html_.element(
          "div",
          sparkline(line.values, line.values.front().day, line.values.back().day, kLineCharacters),
          {{"class", "bars"}, {"role", "img"}, {"aria-label", lineInWords(line)}});
    }
    const HtmlScope caption(html_, "figcaption");
    html_.text(line.figure.name);
    html_.element("small", amountText(line.values.front().amount, line.kind()) + " on " +
                               line.values.front().day.shortDateText() + ", " +
                               amountText(line.values.back().amount, line.kind()) + " on " +
                               line.values.back().day.shortDateText());
  }
}

}  // namespace

std::string briefPage(const Brief& brief, BriefLines lines) {
  return Page(brief, lines).write();
}

}  // namespace dg
