#include "history/history.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

#include "history/changes.h"
#include "history/database.h"
#include "history/sparkline.h"
#include "platform/environment.h"
#include "shell/surroundings.h"
#include "tests/support/temporary_folder.h"

#ifndef _WIN32
#include "tests/support/file_size_limit.h"
#include "tests/support/unprivileged.h"
#endif

namespace dg {
namespace {

using testing::HasSubstr;

const FigureName kUnits{FigureSource::kRecap, "Units"};
const FigureName kOldJobs{FigureSource::kAttention, "shop-old"};

Date day(const char* iso) {
  return *Date::fromIso(iso);
}

Currency cents(std::int32_t amount) {
  return Currency::fromScaled(amount, 100);
}

KeptValue value(const char* iso, std::int32_t amount) {
  return {day(iso), cents(amount), std::nullopt};
}

class HistoryTest : public testing::Test {
 protected:
  HistoryTest() : file_(folder_.file("history.sqlite")) {}

  std::vector<std::string> kept(const History& history, const StoreKey& store,
                                const FigureName& figure = kUnits) {
    std::vector<std::string> texts;
    for (const KeptValue& each : history.values(store, figure)) {
      texts.push_back(each.day.isoText() + " " + each.amount.text() +
                      (each.count ? " x" + std::to_string(*each.count) : ""));
    }
    return texts;
  }
  /// What opening the file, for reading and for writing, complains of. The file stays as it is.
  std::string complaint(const std::string& file) {
    const std::string before = folder_.read("history.sqlite");
    std::string text;
    try {
      History::open(file);
    } catch (const HistoryError& error) {
      text = error.what();
    }
    EXPECT_THROW(History::create(file), HistoryError) << text;
    EXPECT_EQ(folder_.read("history.sqlite"), before) << text;
    return text;
  }

  TemporaryFolder folder_;
  std::string file_;
  StoreKey store_{"SRV1", "LNK001"};
};

TEST_F(HistoryTest, ADayIsReplacedFigureByFigureAndStoresStandApart) {
  EXPECT_FALSE(History::open(file_));
  History history = History::create(folder_.file("new/folder/history.sqlite"));
  history.keep(store_, day("2026-11-24"),
               std::array{KeptFigure{kUnits, cents(100), {}}, KeptFigure{kOldJobs, cents(5), 2}});
  // The clock goes back; a figure in error is not given, and the morning's stays.
  history.keep(store_, day("2026-11-20"), std::array{KeptFigure{kUnits, cents(-1), {}}});
  history.keep(store_, day("2026-11-24"), std::array{KeptFigure{kOldJobs, cents(6), 3}});
  history.keep({"srv1", "LNK001"}, day("2026-11-24"), {});
  history.keep({"srv1", "lnk001"}, day("2026-11-25"), std::array{KeptFigure{kUnits, {}, {}}});
  const StoreKey hostile{"'; DROP TABLE stores; --", "\xC3\x9C\n"};
  history.keep(hostile, day("2026-11-24"), std::array{KeptFigure{kUnits, cents(7), {}}});

  EXPECT_EQ(kept(history, store_),
            (std::vector<std::string>{"2026-11-20 -0.01", "2026-11-24 1", "2026-11-25 0"}));
  EXPECT_EQ(kept(history, store_, kOldJobs), std::vector<std::string>{"2026-11-24 0.06 x3"});
  EXPECT_EQ(history.days(store_).size(), 3U);
  EXPECT_EQ(history.last(store_, kUnits, day("2026-11-23"))->day, day("2026-11-20"));
  EXPECT_FALSE(history.last(store_, kUnits, day("2026-11-23"), day("2026-11-21")));

  history.forget(store_);
  EXPECT_TRUE(history.days(store_).empty());
  EXPECT_EQ(kept(history, hostile), std::vector<std::string>{"2026-11-24 0.07"});
  EXPECT_EQ(history.stores().size(), 1U);
}

TEST_F(HistoryTest, TwoProgramsKeepAtOnce) {
  const auto keepDays = [&](const char* directory) {
    for (int i = 0; i < 20; ++i) {
      History::create(file_).keep({"SRV1", directory}, day("2026-11-01").plusDays(i),
                                  std::array{KeptFigure{kUnits, cents(i), {}}});
    }
  };
  std::thread other(keepDays, "LNK001");
  keepDays("LNK002");
  other.join();
  const std::optional<History> history = History::open(file_);
  EXPECT_EQ(history->days({"SRV1", "LNK001"}).size(), 20U);
  EXPECT_EQ(history->days({"SRV1", "LNK002"}).size(), 20U);
}

TEST_F(HistoryTest, WhatIsNoHistoryIsToldAndLeftAlone) {
  folder_.write("history.sqlite", std::string(5000, 'x'));
  EXPECT_THAT(complaint(file_), HasSubstr("is no history"));

  std::filesystem::remove(file_);
  Database(file_, DatabaseAccess::kCreate)
      .run("CREATE TABLE mine (x); INSERT INTO mine VALUES (1)");
  EXPECT_THAT(complaint(file_), HasSubstr("is no history"));

  std::filesystem::remove(file_);
  History::create(file_).keep(store_, day("2026-11-24"),
                              std::array{KeptFigure{kUnits, cents(1), {}}});
  std::string bytes = folder_.read("history.sqlite");
  folder_.write("history.sqlite", bytes.replace(1024, 3072, 3072, '\xAA'));
  EXPECT_THAT(complaint(file_), HasSubstr("is damaged"));

  std::filesystem::remove(file_);
  History::create(file_);
  Database(file_, DatabaseAccess::kExisting).run("PRAGMA user_version = 2");
  EXPECT_THAT(complaint(file_), HasSubstr("newer version"));
  EXPECT_THAT(complaint(folder_.path().string()), HasSubstr("is no file"));
}

#ifndef _WIN32
/// A home that only others may write, and a file that cannot grow: told, and what was kept stays.
TEST_F(HistoryTest, WhatCannotBeWrittenIsTold) {
  const std::array first{KeptFigure{kUnits, cents(1), {}}};
  History::create(file_).keep(store_, day("2026-11-23"), first);
  const std::string before = folder_.read("history.sqlite");
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0555));
  std::filesystem::permissions(file_, std::filesystem::perms(0444));
  {
    const Unprivileged user;
    EXPECT_THROW(History::create(file_).keep(store_, day("2026-11-24"), first), HistoryError);
    EXPECT_THROW(History::create(folder_.file("new/history.sqlite")), HistoryError);
    EXPECT_EQ(History::open(file_)->days(store_).size(), 1U) << "it can still be read";
  }
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0700));
  std::filesystem::permissions(file_, std::filesystem::perms(0600));

  std::vector<KeptFigure> many;
  for (int i = 0; i < 2000; ++i)
    many.push_back({{FigureSource::kAttention, "kind " + std::to_string(i)}, cents(i), i});
  {
    const FileSizeLimit full(before.size());
    EXPECT_THROW(History::create(file_).keep(store_, day("2026-11-24"), many), HistoryError);
  }
  EXPECT_EQ(kept(*History::open(file_), store_), std::vector<std::string>{"2026-11-23 0.01"});
  History::create(file_).keep(store_, day("2026-11-24"), many);
  EXPECT_EQ(History::open(file_)->days(store_).size(), 2U) << "with room again";
}
#endif

TEST_F(HistoryTest, NothingIsKeptOnTheShare) {
  Surroundings surroundings;
  environment().shareRoot = folder_.file("net");
  std::filesystem::create_directories(folder_.path() / "net/SRV1/DATA");
  // Not every system makes links for everyone; the folder itself is then tried twice.
  std::error_code noLink;
  std::filesystem::create_directory_symlink(folder_.path() / "net/SRV1", folder_.path() / "link",
                                            noLink);
  const std::string linked = noLink ? "net/SRV1/DATA/i.sqlite" : "link/DATA/h.sqlite";
  for (const std::string& place :
       {std::string("net/SRV1/DATA/h.sqlite"), linked, std::string("net/new/h.sqlite")}) {
    EXPECT_THAT(complaint(folder_.file(place)), HasSubstr("would lie on the share")) << place;
  }
  EXPECT_THAT(complaint(R"(\\SRV1\DATA\h.sqlite)"), HasSubstr("would lie on the share"));
  EXPECT_FALSE(folder_.has("net/new"));
}

std::string text(const std::optional<Change>& change) {
  if (!change) return "none";
  return change->from.day.isoText() + " " + change->amount.text() + " " +
         change->percent.value_or("-");
}

TEST(ChangesTest, EachCompareDayIsTheLastThatMayStandForIt) {
  const std::vector<KeptValue> days = {value("2024-02-21", 100), value("2024-02-22", 0),
                                       value("2025-01-24", 300), value("2025-01-30", -800),
                                       value("2025-02-21", 200), value("2025-02-28", -100)};
  const FigureChanges changes = changesOf(days);
  EXPECT_EQ(text(changes.day), "2025-02-21 -3 -150.00");
  EXPECT_EQ(text(changes.week), "2025-02-21 -3 -150.00");
  EXPECT_EQ(text(changes.month), "2025-01-24 -4 -133.33");
  EXPECT_EQ(text(changes.year), "2024-02-22 -1 -") << "0 has no per cent";
  const FigureChanges gap = changesOf(std::span(days).first(4));
  EXPECT_EQ(text(gap.day), "2025-01-24 -11 -366.67");
  EXPECT_EQ(text(gap.week), "2024-02-22 -8 -") << "however long ago";
  EXPECT_EQ(text(gap.month), "none") << "more than 7 days before 30 December";
  EXPECT_EQ(text(gap.year), "none");
  EXPECT_EQ(text(changesOf(std::span(days).first(1)).day), "none");
}

TEST(ChangesTest, PerCentIsOfTheOlderAmountsSizeAndRoundsHalvesAway) {
  const auto percent = [](std::int64_t older, std::int64_t newer) {
    const auto at = [](std::int64_t amount) {
      return KeptValue{day("2026-11-24"), Currency::fromTenThousandths(amount), std::nullopt};
    };
    const auto change = changeFrom(at(older), at(newer));
    return change ? change->percent.value_or("-") : "none";
  };
  EXPECT_EQ(percent(-10, -5), "50.00") << "less of a debt is more";
  EXPECT_EQ(percent(80'000, 80'004), "0.01") << "0.005";
  EXPECT_EQ(percent(80'000, 79'996), "-0.01");
  EXPECT_EQ(percent(90'000, 89'996), "0.00") << "no sign before nothing";
  EXPECT_EQ(percent(INT64_MAX, 0), "-100.00");
  EXPECT_EQ(percent(1, INT64_MAX), "-");
  EXPECT_EQ(percent(INT64_MIN, INT64_MAX), "none");
}

TEST(ChangesTest, TheSameDayOfAShorterMonthIsItsLast) {
  EXPECT_EQ(monthsBefore(day("2026-03-31"), 1), day("2026-02-28"));
  EXPECT_EQ(monthsBefore(day("2024-03-30"), 1), day("2024-02-29"));
  EXPECT_EQ(monthsBefore(day("2024-02-29"), 12), day("2023-02-28"));
  EXPECT_EQ(monthsBefore(day("2026-01-15"), 1), day("2025-12-15"));
}

TEST(SparklineTest, LowestAndHighestAreTheEndsAndMissingDaysBlank) {
  const std::vector<KeptValue> days = {value("2026-11-01", -100), value("2026-11-02", 600),
                                       value("2026-11-04", 250)};
  EXPECT_EQ(sparkline(days, day("2026-11-01"), day("2026-11-05"), 20), "▁█ ▅ ");
  EXPECT_EQ(sparkline(days, day("2026-11-01"), day("2026-11-04"), 2), "█▁") << "the last of two";
  EXPECT_EQ(sparkline(std::span(days).first(1), day("2026-11-01"), day("2026-11-01"), 9), "▅");
}

}  // namespace
}  // namespace dg
