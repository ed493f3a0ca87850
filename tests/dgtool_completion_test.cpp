#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "tests/support/dgtool_run.h"
#include "views/view_catalogue.h"

namespace dg {
namespace {

using Words = std::set<std::string>;

/// What bash offers for a word that begins with `current` behind the words of `line`.
Words completions(const std::string& line, const std::string& current) {
  const std::string script = "source '" DG_SOURCE_DIR
                             "/packaging/completion/dgtool.bash'; COMP_WORDS=(dgtool " +
                             line + " '" + current +
                             "'); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _dgtool; "
                             "printf '%s\\n' \"${COMPREPLY[@]}\"";
  const std::string command =
      "bash -c \"" + std::regex_replace(script, std::regex(R"([\\"$])"), R"(\$&)") + "\"";
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), &pclose);
  Words words;
  if (!pipe) return words;
  char line_[256];
  while (std::fgets(line_, sizeof line_, pipe.get()) != nullptr) {
    std::string word(line_);
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
  const std::regex pattern("(?:^|\\n) +(?:-\\w,)?(--[a-z-]+)");
  for (std::sregex_iterator it(tool.out.begin(), tool.out.end(), pattern), end; it != end; ++it)
    options.insert((*it)[1]);
  return options;
}

TEST(DgtoolCompletionTest, EveryLongOptionIsCompleted) {
  for (const char* command :
       {"", "report", "inspect", "inspect files", "inspect keys", "inspect record", "sample"}) {
    const Words options = helpOptions(command);
    EXPECT_TRUE(options.contains("--version")) << command;
    EXPECT_EQ(completions(command, "--"), options) << command;
  }
}

TEST(DgtoolCompletionTest, EveryLongOptionIsInTheManual) {
  std::ifstream file(DG_SOURCE_DIR "/docs/man/dgtool.1");
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  const std::string manual = std::regex_replace(page, std::regex(R"(\\-)"), "-");
  for (const char* command :
       {"report", "inspect files", "inspect keys", "inspect record", "sample"}) {
    for (const std::string& option : helpOptions(command))
      EXPECT_TRUE(std::regex_search(manual, std::regex("\\n\\.BI? \"?" + option + "( |\n)")) ||
                  option == "--help" || option == "--version")
          << command << " " << option;
  }
}

TEST(DgtoolCompletionTest, CommandsAndViewsAreCompleted) {
  EXPECT_EQ(completions("", ""), (Words{"report", "inspect", "sample"}));
  EXPECT_EQ(completions("inspect", ""), (Words{"files", "keys", "record"}));
  EXPECT_EQ(completions("report --view", "frmGL"), (Words{"frmGLA", "frmGLL"}));
  const Words views = completions("report --view", "");
  for (const std::string& name : viewCatalogue().names())
    EXPECT_TRUE(views.contains(name)) << name;
}

}  // namespace
}  // namespace dg
