#include "export/mail.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>

#include "export/transfer_encoding.h"
#include "platform/clock.h"
#include "platform/text.h"

namespace dg {

namespace {

constexpr std::size_t kLongestAddress = 254;
constexpr std::string_view kEnd = "\r\n";

bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Atoms between single dots, each of letters, digits and some signs.
bool isDotAtom(std::string_view text, std::string_view signs) {
  char former = '.';
  for (const char c : text) {
    if (c == '.' ? former == '.' : !isLetterOrDigit(c) && signs.find(c) == signs.npos) return false;
    former = c;
  }
  return former != '.';
}

bool isAddress(std::string_view text) {
  const std::size_t at = text.rfind('@');
  if (at == std::string_view::npos || text.size() > kLongestAddress) return false;
  return isDotAtom(text.substr(0, at), "!#$%&'*+-/=?^_`{|}~") &&
         isDotAtom(text.substr(at + 1), "-");
}

std::string randomDigits() {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::random_device random;
  std::string digits;
  for (int i = 0; i < 24; ++i)
    digits += kDigits[random() % kDigits.size()];
  return digits;
}

/// The moment in UTC: the clock's is local time.
std::string dateText(Date moment) {
  constexpr const char* kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::tm local{};
  local.tm_year = moment.year() - 1900;
  local.tm_mon = moment.month() - 1;
  local.tm_mday = moment.day();
  local.tm_sec = moment.secondOfDay();
  local.tm_isdst = -1;
  const std::time_t time = std::mktime(&local);
  const std::tm utc = *std::gmtime(&time);
  char clock[40];
  std::snprintf(clock, sizeof clock, "%02d %s %04d %02d:%02d:%02d +0000", utc.tm_mday,
                kMonths[utc.tm_mon], utc.tm_year + 1900, utc.tm_hour, utc.tm_min, utc.tm_sec);
  return std::string(kDays[utc.tm_wday]) + ", " + clock;
}

std::string addressText(const MailAddress& who) {
  if (who.name.empty()) return who.address;
  return headerPhrase(who.name) + "\r\n <" + who.address + ">";
}

std::string part(std::string_view type, std::string_view encoding, std::string_view body) {
  std::string result("Content-Type:");
  if (!type.starts_with(kEnd)) result += ' ';
  result.append(type).append(kEnd).append("Content-Transfer-Encoding: ").append(encoding);
  return result.append("\r\n\r\n").append(body);
}

/// The parts between their marks. An equals sign followed by "_" is in no encoded part.
std::string multipart(std::string_view kind, const std::vector<std::string>& parts) {
  const std::string boundary = "=_" + randomDigits();
  std::string result = "Content-Type: multipart/" + std::string(kind) + ";\r\n boundary=\"" +
                       boundary + "\"\r\n\r\n";
  for (const std::string& each : parts)
    result.append("--").append(boundary).append(kEnd).append(each).append(kEnd);
  return result.append("--").append(boundary).append("--\r\n");
}

std::string body(const Mail& mail) {
  std::string alternatives =
      multipart("alternative",
                {part("text/plain; charset=utf-8", "quoted-printable", quotedPrintable(mail.text)),
                 part("text/html; charset=utf-8", "quoted-printable", quotedPrintable(mail.html))});
  if (!mail.attachment) return alternatives;
  const auto& [name, type, content] = *mail.attachment;
  std::string attached =
      part("\r\n " + type + ";\r\n name=\"" + name + "\"",
           "base64\r\nContent-Disposition: attachment;\r\n filename=\"" + name + "\"",
           base64Lines(content));
  return multipart("mixed", {std::move(alternatives), std::move(attached)});
}

}  // namespace

std::optional<MailAddress> parseMailAddress(std::string_view text) {
  if (withoutControls(text) != text) return std::nullopt;
  text = trim(text);
  MailAddress result;
  std::string_view address = text;
  if (const std::size_t open = text.rfind('<'); open != std::string_view::npos) {
    if (text.back() != '>') return std::nullopt;
    address = text.substr(open + 1, text.size() - open - 2);
    std::string_view name = trim(text.substr(0, open));
    if (name.size() > 1 && name.front() == '"' && name.back() == '"')
      name = name.substr(1, name.size() - 2);
    result.name = name;
  }
  if (!isAddress(address)) return std::nullopt;
  result.address = address;
  return result;
}

std::string composeMail(const Mail& mail) {
  const std::string domain = mail.from.address.substr(mail.from.address.rfind('@') + 1);
  std::string message = "Date: " + dateText(now()) + "\r\nFrom: " + addressText(mail.from);
  if (!mail.to.empty()) message += "\r\nTo: ";
  for (std::size_t i = 0; i < mail.to.size(); ++i)
    message += (i == 0 ? "" : ",\r\n ") + addressText(mail.to[i]);
  message += "\r\nSubject: " + headerText(mail.subject);
  message += "\r\nMessage-ID: <" + randomDigits() + "@" + domain + ">";
  message += "\r\nAuto-Submitted: auto-generated\r\nMIME-Version: 1.0\r\n";
  return message + body(mail);
}

}  // namespace dg
