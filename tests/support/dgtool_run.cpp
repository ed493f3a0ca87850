#include "tests/support/dgtool_run.h"

#include <gtest/gtest.h>

#include "views/financial/recap.h"

namespace dg {

DgtoolRun::DgtoolRun() {
  views.add("frmRecap", [] { return std::make_unique<frmRecap>(); });
}

void DgtoolRun::addView(const std::string& name, std::function<void(TestView&)> fill) {
  views.add(name, [name, fill = std::move(fill)] {
    auto view = std::make_unique<TestView>(name, name + " caption");
    fill(*view);
    return view;
  });
}

int DgtoolRun::run(const std::vector<std::string>& arguments) {
  if (!std::exchange(opened_, true)) store.openStore();
  std::ostringstream outStream;
  std::ostringstream errStream;
  const int status = runDgtool(arguments, Console{outStream, errStream, errIsTerminal}, views);
  out = outStream.str();
  err = errStream.str();
  return status;
}

nlohmann::json DgtoolRun::json() const {
  const auto document = nlohmann::json::parse(out, nullptr, false);
  EXPECT_FALSE(document.is_discarded()) << out;
  return document;
}

}  // namespace dg
