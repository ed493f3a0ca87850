#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dg {

/// Who a mail is from or to; both UTF-8, the address ASCII.
struct MailAddress {
  std::string name;  ///< may be empty
  std::string address;
};

/// Takes "Ann Fenholt <ann@example.com>" or "ann@example.com" apart; nothing when the text is
/// neither, or holds a line end or another control character.
std::optional<MailAddress> parseMailAddress(std::string_view text);

/// A message in the making. Texts are UTF-8.
struct Mail {
  struct Attachment {
    std::string name;  ///< ASCII letters, digits, "-", "." only
    std::string type;  ///< such as "application/pdf"
    std::string content;
  };

  MailAddress from;
  std::vector<MailAddress> to;
  std::string subject;
  std::string text;
  std::string html;
  std::optional<Attachment> attachment;
};

/// A complete message (RFC 5322 and MIME), with CR LF line ends and 7-bit bytes, lines of at most
/// 76 characters but for long addresses: text and HTML as alternatives, what is attached beside
/// them. A line end in a name or the subject becomes a blank, so that neither can add a header.
std::string composeMail(const Mail& mail);

}  // namespace dg
