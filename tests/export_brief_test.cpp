#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

#include "export/brief.h"
#include "export/mail.h"
#include "export/transfer_encoding.h"

namespace dg {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kHostile = "<script>alert(1)</script>\"'& --> ]]> \x93\r\nBcc: x@y";

std::size_t count(const std::string& text, const std::string& piece) {
  std::size_t found = 0;
  for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1))
    ++found;
  return found;
}

FigureHistory line(Figure figure, int days) {
  const RecapFigure& row = recapFigure(figure);
  FigureHistory result{.figure = {FigureSource::kRecap, std::string(row.name)},
                       .recap = &row,
                       .values = {},
                       .changes = {}};
  for (int i = 0; i < days; ++i)
    result.values.push_back({Date(40000 + i), Currency(i * i % 997 - 400), std::nullopt});
  return result;
}

Brief brief() {
  Brief result{.moment = Date(46350, 37800), .stores = {}, .isGroup = false};
  BriefStore& store = result.stores.emplace_back();
  store.recap.directory = "LNK001";
  store.recap.name = kHostile;
  for (StoreFigure& figure : store.recap.figures)
    figure.caption = "$1.00";
  store.recap.figures[0] = {.caption = "Data Error !", .amount = {}, .error = true};
  store.troubles = {std::string("Trouble ") + kHostile};
  const Change change{.from = {Date(46349), Currency(1), {}},
                      .amount = Currency(1),
                      .count = {},
                      .percent = "50.00"};
  store.changes.push_back({Figure::kTodaysSales, change, ChangeTone::kGood});
  KindResult& kind = store.kinds.emplace_back();
  kind.kind = AttentionKind::kShopOld;
  kind.days = 30;
  for (int i = 1; i <= 7; ++i) {
    kind.rows.push_back({.what = "JOB" + std::to_string(i) + kHostile,
                         .who = kHostile,
                         .date = Date(46000),
                         .days = 350,
                         .amount = Currency(i),
                         .row = {}});
  }
  store.kinds.emplace_back().kind = AttentionKind::kOrdersOld;
  store.ageing.emplace_back().error = kHostile;
  store.lines = {line(Figure::kUnits, 2), line(Figure::kMonthRate, 5000)};
  return result;
}

/// Whether the elements of a page are closed in their order.
bool isBalanced(const std::string& page) {
  const std::regex tag("<(/?)([a-z0-9]+)[^>]*>");
  std::vector<std::string> open;
  for (auto it = std::sregex_iterator(page.begin(), page.end(), tag); it != std::sregex_iterator();
       ++it) {
    const std::string name = (*it)[2];
    if (name == "meta") continue;
    if ((*it)[1].length() == 0) {
      open.push_back(name);
    } else if (open.empty() || open.back() != name) {
      return false;
    } else {
      open.pop_back();
    }
  }
  return open.empty();
}

TEST(BriefPageTest, IsWholeAndEscapesAllTexts) {
  const std::string page = briefPage(brief(), BriefLines::kDrawings);
  EXPECT_TRUE(isBalanced(page));
  EXPECT_THAT(page, HasSubstr("content=\"default-src &#39;none&#39;"));
  EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;&quot;&#39;&amp; --&gt;"));
  EXPECT_THAT(page, HasSubstr("\xE2\x80\x9C"));
  for (const char* forbidden : {"<script", "href=", "src=", "url(", "http:", "https:", "\r"})
    EXPECT_THAT(page, Not(HasSubstr(forbidden)));
  EXPECT_EQ(count(page, "<table"), count(page, "<thead"));
  EXPECT_EQ(count(page, "<svg"), 2U);
  EXPECT_EQ(count(page, "role=\"img\" aria-label="), 2U) << "every picture has a text";
  EXPECT_LT(page.find("Trouble"), page.find("<h2>Recap")) << "what is wrong stands on top";
  EXPECT_LT(page.find("JOB7"), page.find("JOB3"));
  EXPECT_THAT(page, Not(HasSubstr("JOB2"))) << "the five largest";
  EXPECT_THAT(page, HasSubstr("and 2 more"));
  EXPECT_THAT(page, HasSubstr("Nothing to do: "));
  EXPECT_THAT(page, HasSubstr("<span class=\"good\">\xE2\x96\xB2 $1.00 (+50.0%)"));
  EXPECT_LT(page.size(), 40'000U) << "years of days are thinned out";
}

TEST(BriefPageTest, AMailHasLinesOfCharactersAndAGroupItsTotals) {
  Brief group = brief();
  group.isGroup = true;
  group.stores.emplace_back().recap.error = kHostile;
  group.stores[1].recap.directory = "LNK002";
  const std::string page = briefPage(group, BriefLines::kCharacters);
  EXPECT_TRUE(isBalanced(page));
  EXPECT_THAT(page, Not(HasSubstr("<svg")));
  EXPECT_THAT(page, HasSubstr("The totals cover 1 of 2 stores."));
  EXPECT_THAT(page, HasSubstr("data-head=\"LNK002\">not read<"));
  const std::string text = briefText(group);
  EXPECT_THAT(text, HasSubstr("TOTALS over 1 of 2"));
  EXPECT_EQ(count(text, "\r"), 0U);
}

TEST(MailTest, NoTextBecomesAHeaderAndNoLineIsTooLong) {
  const auto from = parseMailAddress("\"D\xC3\xA9 <G>\" <gauge@example.com>");
  ASSERT_TRUE(from);
  Mail mail{.from = *from,
            .to = {{"A \"B\" \\", "a.b+c@example.com"}, {"", "d@example.com"}},
            .subject = std::string("Report\r\nBcc: x@y\r\n\r\nbody ") + std::string(200, 'e') +
                       "\xE2\x82\xAC",
            .text = "From here\n.dot \nlast=" + std::string(300, 'x') + "\n\n",
            .html = "<p>\xE2\x82\xAC</p>" + std::string(500, '.'),
            .attachment = Mail::Attachment{"a.xlsx", "application/x-test", std::string(300, '\0')}};
  const std::string message = composeMail(mail);
  std::istringstream lines(message);
  for (std::string each; std::getline(lines, each);) {
    ASSERT_TRUE(each.ends_with('\r'));
    EXPECT_LE(each.size(), 77U) << each;
    EXPECT_FALSE(each.starts_with('.') || each.starts_with("Bcc") || each.starts_with("From "));
    EXPECT_TRUE(std::ranges::all_of(each, [](char c) { return c > 0; })) << "7 bits";
  }
  const std::string head = message.substr(0, message.find("\r\n\r\n"));
  EXPECT_THAT(head, HasSubstr("MIME-Version: 1.0"));
  EXPECT_THAT(head, HasSubstr("\"A \\\"B\\\" \\\\\"\r\n <a.b+c@example.com>,\r\n d@example.com"));
  EXPECT_EQ(quotedPrintable("a \n"), "a=20\r\n");
  EXPECT_EQ(quotedPrintable("From x"), "=46rom x\r\n");
}

TEST(MailTest, OnlyPlainAddressesAreTaken) {
  for (const char* good : {"a@b", "Ann <ann@example.com>", " ann.lee@example.co.uk "})
    EXPECT_TRUE(parseMailAddress(good)) << good;
  for (const char* bad :
       {"", "ann", "@b", "a@", "a@b@c", "a b@c", "a@b>", "<a@b", "a@b\r\nBcc: c@d", "a..b@c",
        ".a@b", "a@b.", "a@b,c@d", "Ann <a@b>, c@d", "\xC3\xA9@b", "Ann\n <a@b>"})
    EXPECT_FALSE(parseMailAddress(bad)) << bad;
}

}  // namespace
}  // namespace dg
