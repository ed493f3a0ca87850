#include "tools/dgtool/brief_command.h"

#include <algorithm>

#include "export/export_file.h"
#include "platform/clock.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "tools/dgtool/history_option.h"
#include "tools/dgtool/recap_command.h"
#include "tools/dgtool/store_group.h"
#include "tools/dgtool/xlsx_report.h"

namespace dg {

namespace {

/// In place of a file: standard output.
constexpr const char* kOutput = "-";
constexpr const char* kWorkbookType =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet";
constexpr const char* kAddressHint =
    "an address such as ann@example.com or \"Ann <ann@example.com>\"";

}  // namespace

void BriefCommand::addOptions(CLI::App& app) {
  CLI::Option* html =
      app.add_option("--html", html_, "Write the page to this file; - for standard output")
          ->type_name("FILE");
  CLI::Option* eml =
      app.add_option("--eml", eml_, "Write a mail to this file; - for standard output")
          ->type_name("FILE")
          ->excludes(html);
  addParsed(
      app, "--from", from_, [](const std::string& text) { return parseMailAddress(text); },
      kAddressHint, "Who the mail is from")
      ->type_name("ADDRESS")
      ->needs(eml);
  app.add_option_function<std::vector<std::string>>(
         "--to",
         [this](const std::vector<std::string>& texts) {
           for (const std::string& text : texts) {
             const auto address = parseMailAddress(text);
             if (!address)
               throw CLI::ValidationError("--to", "\"" + text + "\" is not " + kAddressHint);
             to_.push_back(*address);
           }
         },
         "Who the mail is to (repeatable)")
      ->type_name("ADDRESS")
      ->allow_extra_args(false)
      ->needs(eml);
  app.add_option("--subject", subject_, "Subject of the mail")->type_name("TEXT")->needs(eml);
  app.add_flag("--xlsx", attach_, "Attach the workbook to the mail")->needs(eml);
  addStoresOption(app, stores_);
  addHistoryOption(app, history_);
  addStoreOptions(app, store_);
}

void BriefCommand::checkOptions() const {
  const std::string& file = html_.empty() ? eml_ : html_;
  if (file.empty()) throw UsageError("brief needs --html FILE or --eml FILE");
  if (file != kOutput) checkExportPath(pathFromBytes(file));
}

int BriefCommand::run(const Console& console) {
  checkOptions();
  bool whole = true;
  const Brief brief = read(console, whole);
  write(console, brief);
  return whole ? 0 : 1;
}

Brief BriefCommand::read(const Console& console, bool& whole) {
  const std::filesystem::path file =
      history_.empty() ? defaultHistoryFile() : historyFile(history_);
  std::optional<History> history;
  if (!file.empty()) history = History::open(file);
  if (!history && !history_.empty()) throw UsageError("--history: there is no history " + history_);

  Brief brief{.moment = store_.asOf.value_or(now()), .stores = {}, .isGroup = !stores_.empty()};
  const Date today(brief.moment.days());
  StoreGroup group(catalogue_, store_, console);
  std::vector<StoreRecap> recaps;
  for (const std::string& directory : wantedStores(stores_, store_, console)) {
    BriefStore store;
    OpenItems items;
    {
      const ObservingScope observing(items);
      store.recap = group.load(directory, [&](const Session&, frmTRVN& main) {
        items.readMissing();
        takeFigures(store, main, history ? &*history : nullptr, today);
        store.kinds = attentionOf(items, today);
        store.ageing = ageingOf(items, today);
        if (attach_ && !brief.isGroup) workbook_ = reportWorkbook(main, main.loadedViews());
      });
    }
    const auto isWhole = [](const auto& part) { return part.isWhole(); };
    whole = whole && std::ranges::all_of(store.kinds, isWhole) &&
            std::ranges::all_of(store.ageing, isWhole);
    recaps.push_back(store.recap);
    if (!brief.isGroup && !store.recap.error.empty())
      throw UsageError("the store cannot be reached");
    brief.stores.push_back(std::move(store));
  }
  if (attach_ && brief.isGroup) workbook_ = recapWorkbook(recaps);
  whole = whole && group.isWhole();
  return brief;
}

void BriefCommand::write(const Console& console, const Brief& brief) const {
  const std::string& file = html_.empty() ? eml_ : html_;
  const std::string content = html_.empty() ? mail(brief) : briefPage(brief, BriefLines::kDrawings);
  if (file == kOutput) {
    console.out << content;
  } else {
    writeExport(pathFromBytes(file), content);
  }
}

std::string BriefCommand::mail(const Brief& brief) const {
  Mail mail{.from = from_.value_or(MailAddress{"Dealer Gauge", "dealergauge@localhost"}),
            .to = to_,
            .subject = subject_.empty() ? briefTitle(brief) : subject_,
            .text = briefText(brief),
            .html = briefPage(brief, BriefLines::kCharacters),
            .attachment = std::nullopt};
  if (attach_) {
    mail.attachment = {.name = "dealer-gauge-" + brief.moment.isoText().substr(0, 10) + ".xlsx",
                       .type = kWorkbookType,
                       .content = workbook_};
  }
  return composeMail(mail);
}

}  // namespace dg
