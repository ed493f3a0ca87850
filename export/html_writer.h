#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dg {

/// Writes HTML in which every text is escaped, that of attributes too: only names of elements and
/// attributes, and what markup() takes, stand as they are, and those come from the program's own
/// sources. All texts are UTF-8.
class HtmlWriter {
 public:
  using Attributes = std::vector<std::pair<std::string_view, std::string>>;

  HtmlWriter& open(std::string_view tag, const Attributes& attributes = {});
  /// Ends the innermost element that is open.
  HtmlWriter& close();
  HtmlWriter& text(std::string_view utf8);
  /// An element with a text in it.
  HtmlWriter& element(std::string_view tag, std::string_view utf8,
                      const Attributes& attributes = {});
  /// An element that has no end, such as "meta".
  HtmlWriter& single(std::string_view tag, const Attributes& attributes);
  /// What the program itself has written: styles, the document's first line.
  HtmlWriter& markup(std::string_view trusted);

  /// All that was written; every element must have been closed.
  std::string take();

 private:
  void start(std::string_view tag, const Attributes& attributes);

  std::string out_;
  std::vector<std::string> open_;
};

/// Ends an element where its block ends.
class HtmlScope {
 public:
  HtmlScope(HtmlWriter& html, std::string_view tag, const HtmlWriter::Attributes& attributes = {})
      : html_(html) {
    html_.open(tag, attributes);
  }
  ~HtmlScope() { html_.close(); }
  HtmlScope(const HtmlScope&) = delete;
  HtmlScope& operator=(const HtmlScope&) = delete;

 private:
  HtmlWriter& html_;
};

}  // namespace dg
