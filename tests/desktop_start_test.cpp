// The program itself, as the main menu starts it and the system ends it.
#include <QProcess>
#include <filesystem>
#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"
#include "tools/sample/sample_store.h"

namespace dg {
namespace {

struct Outcome {
  int status;
  QByteArray errors;
};
Outcome startProgramWith(const QStringList& arguments, const QString& platform) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove("DISPLAY");
  environment.remove("WAYLAND_DISPLAY");
  environment.insert("QT_QPA_PLATFORM", platform);
  process.setProcessEnvironment(environment);
  process.start(DG_DEALERGAUGE, arguments);
  process.waitForFinished(60'000);
  return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
          process.readAllStandardError()};
}

TEST(DesktopStartTest, WithoutADisplayItSaysSo) {
#ifdef Q_OS_WIN
  GTEST_SKIP() << "there is always a display";
#endif
  const Outcome outcome = startProgramWith({"7Q809R21T"}, "xcb");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_TRUE(outcome.errors.contains("no display")) << outcome.errors.toStdString();
}

TEST(DesktopStartTest, ASystemThatShutsDownGetsAProperEnd) {
#ifdef Q_OS_WIN
  GTEST_SKIP() << "a share's names lead where the network does";
#endif
  const TemporaryFolder folder;
  const std::string store = folder.file("store");
  writeSampleStore(store, {});
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  environment.insert("TEMP", QString::fromStdString(store + "/temp"));
  environment.insert("DG_SHARE_ROOT", QString::fromStdString(store + "/share"));
  environment.insert("XDG_CONFIG_HOME", QString::fromStdString(store + "/config"));
  process.setProcessEnvironment(environment);
  process.start(DG_DEALERGAUGE, {"7Q809R21T"});
  const auto log = [&folder] { return folder.read("store/temp/dgoperation.log"); };
  while (process.state() != QProcess::NotRunning && log().empty())
    process.waitForFinished(20);
  process.terminate();
  ASSERT_TRUE(process.waitForFinished(60'000));
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 0);
  EXPECT_TRUE(log().ends_with("  Program End \r\n")) << log();

  // A log that is gone by then is told to nobody: nobody may be there to close a box.
  process.start(DG_DEALERGAUGE, {"7Q809R21T"});
  const std::string before = log();
  while (process.state() != QProcess::NotRunning && log() == before)
    process.waitForFinished(20);
  std::filesystem::rename(store + "/temp", store + "/gone");
  process.terminate();
  ASSERT_TRUE(process.waitForFinished(60'000));
  EXPECT_EQ(process.exitCode(), 0);
}

}  // namespace
}  // namespace dg
