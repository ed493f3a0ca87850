#include "platform/message_box.h"

#include <algorithm>
#include <iostream>
#include <string_view>
#include <utility>

#include "platform/text.h"

namespace dg {

namespace {

MessageBoxHandler& currentHandler() {
  static MessageBoxHandler handler;
  return handler;
}

/// A line for a terminal: the bytes that the code page leaves undefined would become control
/// characters as well.
std::string terminalLine(std::string_view bytes) {
  std::string clean = withoutControls(bytes);
  std::replace_if(
      clean.begin(), clean.end(),
      [](char c) { return std::string_view("\x81\x8D\x8F\x90\x9D").find(c) != std::string::npos; },
      ' ');
  return utf8FromBytes(clean);
}

/// The text's lines, those after the first indented, so that they are seen to belong together.
std::string terminalText(const MessageBox& box) {
  std::string result;
  if (!box.title.empty()) result = terminalLine(box.title) + ": ";
  std::string_view rest = box.text;
  for (bool more = true; more;) {
    const std::size_t end = rest.find('\n');
    more = end != std::string_view::npos;
    std::string_view line = rest.substr(0, end);
    if (more && !line.empty() && line.back() == '\r') line.remove_suffix(1);
    result += terminalLine(line) + '\n';
    if (more) {
      result += "  ";
      rest.remove_prefix(end + 1);
    }
  }
  return result;
}

}  // namespace

void MsgBox(const std::string& text, int style, const std::string& title) {
  const MessageBox box{title, text, style};
  // A copy, since a handler may set another one.
  if (const MessageBoxHandler handler = currentHandler()) {
    handler(box);
  } else {
    std::cerr << terminalText(box) << std::flush;
  }
}

MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler) {
  return std::exchange(currentHandler(), std::move(handler));
}

}  // namespace dg
