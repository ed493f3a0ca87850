#include "export/html_writer.h"

#include <utility>

namespace dg {

namespace {

void appendEscaped(std::string& out, std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\'':
        out += "&#39;";
        break;
      default:
        out += static_cast<unsigned char>(c) < 32 ? ' ' : c;
    }
  }
}

}  // namespace

void HtmlWriter::start(std::string_view tag, const Attributes& attributes) {
  out_.append("<").append(tag);
  for (const auto& [name, value] : attributes) {
    out_.append(" ").append(name).append("=\"");
    appendEscaped(out_, value);
    out_ += '"';
  }
  out_ += '>';
}

HtmlWriter& HtmlWriter::open(std::string_view tag, const Attributes& attributes) {
  start(tag, attributes);
  open_.emplace_back(tag);
  return *this;
}

HtmlWriter& HtmlWriter::close() {
  out_.append("</").append(open_.back()).append(">\n");
  open_.pop_back();
  return *this;
}

HtmlWriter& HtmlWriter::text(std::string_view utf8) {
  appendEscaped(out_, utf8);
  return *this;
}

HtmlWriter& HtmlWriter::element(std::string_view tag, std::string_view utf8,
                                const Attributes& attributes) {
  return open(tag, attributes).text(utf8).close();
}

HtmlWriter& HtmlWriter::single(std::string_view tag, const Attributes& attributes) {
  start(tag, attributes);
  out_ += '\n';
  return *this;
}

HtmlWriter& HtmlWriter::markup(std::string_view trusted) {
  out_ += trusted;
  return *this;
}

std::string HtmlWriter::take() {
  return std::exchange(out_, {});
}

}  // namespace dg
