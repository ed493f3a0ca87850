#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "tests/support/dgtool_run.h"
#include "views/view_catalogue.h"

namespace dg {
namespace {

using Words = std::set<std::string>;

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
}

/// What bash offers for a word that begins with `current` behind the words of `line`.
Words completions(const std::string& line, const std::string& current) {
  const std::string script = "source '" DG_SOURCE_DIR
                             "/packaging/completion/dgtool.bash'; COMP_WORDS=(dgtool " +
                             line + " '" + current +
                             "'); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _dgtool; "
                             "printf '%s\\n' \"${COMPREPLY[@]}\"";
  // Within single quotes everything but the quote stands for itself.
  const std::string command = "bash -c '" + replaced(script, "'", "'\\''") + "'";
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), &pclose);
  Words words;
  if (!pipe) return words;
  char buffer[256];
  while (std::fgets(buffer, sizeof buffer, pipe.get()) != nullptr) {
    std::string word(buffer);
    word.pop_back();
    if (!word.empty()) words.insert(word);
  }
  return words;
}

/// The long options that a command's help lists.
Words helpOptions(const std::string& command) {
  DgtoolRun tool;
  std::istringstream words(command);
  std::vector<std::string> arguments;
  for (std::string word; words >> word;)
    arguments.push_back(word);
  arguments.push_back("--help");
  EXPECT_EQ(tool.run(arguments), 0);
  Words options;
  std::istringstream lines(tool.out);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t at = line.find("--");
    // Options stand at the left edge, perhaps behind a short form; "--" farther on is prose.
    if (!line.starts_with("  ") || at > 5) continue;
    options.insert(line.substr(at, line.find_first_of(" :", at) - at));
  }
  return options;
}

TEST(DgtoolCompletionTest, EveryLongOptionIsCompleted) {
  for (const char* command :
       {"", "report", "inspect", "inspect files", "inspect keys", "inspect record", "attention",
        "snapshot", "history", "brief", "recap", "stores", "check", "sample"}) {
    const Words options = helpOptions(command);
    EXPECT_TRUE(options.contains("--version")) << command;
    EXPECT_EQ(completions(command, "--"), options) << command;
  }
}

TEST(DgtoolCompletionTest, EveryLongOptionIsInTheManual) {
  std::ifstream file(DG_SOURCE_DIR "/docs/man/dgtool.1");
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  const std::string manual = replaced(page, "\\-", "-");
  const auto isDescribed = [&](const std::string& option) {
    for (const std::string start : {"\n.B ", "\n.BI ", "\n.BI \""}) {
      for (const char* end : {" ", "\n"}) {
        if (manual.find(start + option + end) != std::string::npos) return true;
      }
    }
    return false;
  };
  for (const char* command :
       {"report", "inspect files", "inspect keys", "inspect record", "attention", "snapshot",
        "history", "brief", "recap", "stores", "check", "sample"}) {
    for (const std::string& option : helpOptions(command)) {
      if (option == "--help" || option == "--version") continue;
      EXPECT_TRUE(isDescribed(option)) << command << " " << option;
    }
  }
}

TEST(DgtoolCompletionTest, CommandsAndViewsAreCompleted) {
  EXPECT_EQ(completions("", ""), (Words{"report", "inspect", "attention", "snapshot", "history",
                                        "brief", "recap", "stores", "check", "sample"}));
  EXPECT_EQ(completions("inspect", ""), (Words{"files", "keys", "record"}));
  EXPECT_EQ(completions("report --view", "frmGL"), (Words{"frmGLA", "frmGLL"}));
  const Words views = completions("report --view", "");
  for (const std::string& name : viewCatalogue().names())
    EXPECT_TRUE(views.contains(name)) << name;
}

}  // namespace
}  // namespace dg
