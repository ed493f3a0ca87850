#include "forms/form.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "forms/tree_view.h"
#include "platform/message_box.h"
#include "tests/support/error_number.h"

namespace dg {
namespace {

class SampleForm final : public Form {
 public:
  SampleForm() : Form("frmSample", "Sample"), lblTotal(add<Label>("lblTotal")) {
    add<Button>(elementName("cmdMove", 1), "Move All");
  }
  Label& lblTotal;
};

class RecordingPresenter final : public Presenter {
 public:
  RecordingPresenter() { setPresenter(this); }
  ~RecordingPresenter() override { setPresenter(nullptr); }
  void show(Form& form) override { calls.push_back("show " + form.name()); }
  void hide(Form& form) override { calls.push_back("hide " + form.name()); }
  void showModal(Form& form) override {
    calls.push_back("modal " + form.name());
    EXPECT_TRUE(form.visible());
    if (closing) closing(form);
  }
  void unload(Form& form) override { calls.push_back("unload " + form.name()); }
  std::vector<std::string> calls;
  std::function<void(Form&)> closing;
};

TEST(FormTest, ControlsAreFoundByNameAndKind) {
  const SampleForm form;
  EXPECT_EQ(form.find("lblTotal"), &form.lblTotal);
  EXPECT_EQ(form.get<Button>("cmdMove(1)").caption(), "Move All");
  EXPECT_EQ(form.find("cmdMove"), nullptr);
  EXPECT_THROW(form.get<Button>("lblTotal"), RunTimeError);
  EXPECT_EQ(form.controls().size(), 2U);
}

TEST(FormTest, ThePresenterIsToldAndAModalFormClosesFromInside) {
  RecordingPresenter screen;
  SampleForm form;
  bool unloaded = false;
  const Connection watch = form.unloaded.connect([&] { unloaded = true; });
  form.Show();
  EXPECT_TRUE(form.visible());
  form.Hide();
  EXPECT_FALSE(form.visible());
  screen.closing = [](Form& shown) { shown.Unload(); };
  form.ShowModal();
  EXPECT_FALSE(form.visible());
  EXPECT_TRUE(unloaded);
  EXPECT_EQ(screen.calls, (std::vector<std::string>{"show frmSample", "hide frmSample",
                                                    "modal frmSample", "unload frmSample"}));
}

TEST(FormTest, AnObserverOfItsEndMayDropTheForm) {
  auto form = std::make_unique<SampleForm>();
  const Connection watch = form->unloaded.connect([&] { form.reset(); });
  form->Unload();
  EXPECT_EQ(form, nullptr);
}

TEST(SignalTest, ObserversMayLeaveWhileTheyAreCalled) {
  Connection second;
  int calls = 0;
  auto signal = std::make_unique<Signal<int>>();
  Connection first = signal->connect([&](int step) {
    calls += step;
    first.disconnect();
  });
  second = signal->connect([&](int step) { calls += 10 * step; });
  signal->emit(1);
  signal->emit(1);
  EXPECT_EQ(calls, 21);
  signal.reset();
  second.disconnect();
}

TEST(TreeViewTest, KeysAreUniqueAndParentsKnown) {
  TreeView tree("tv1");
  tree.add({.key = "A", .text = "Assets"});
  tree.add({.key = "A1", .parent = "A", .text = "Parts"});
  EXPECT_EQ(errorNumber([&] { tree.add({.key = "A1"}); }), 35602);
  EXPECT_EQ(errorNumber([&] { tree.add({.key = "B1", .parent = "B"}); }), 35601);
  EXPECT_EQ(errorNumber([&] { tree.select("B"); }), 35601);
  EXPECT_EQ(errorNumber([&] { tree.setExpanded(2, true); }), 35601);
  EXPECT_EQ(tree.nodes().size(), 2U);
}

TEST(TreeViewTest, OnlyAClickRaisesTheClickEvent) {
  TreeView tree("tv1");
  tree.add({.key = "A"});
  tree.add({.key = "B"});
  std::vector<std::string> clicked;
  tree.onNodeClick = [&](const std::string& key) {
    EXPECT_EQ(tree.selected(), key);
    clicked.push_back(key);
  };
  tree.select("A");
  EXPECT_EQ(tree.selected(), "A");
  EXPECT_TRUE(clicked.empty());
  tree.click("B");
  EXPECT_EQ(clicked, (std::vector<std::string>{"B"}));

  std::vector<std::string> texts;
  const auto former =
      setMessageBoxHandler([&](const MessageBox& box) { texts.push_back(box.text); });
  tree.click("C");
  setMessageBoxHandler(former);
  EXPECT_EQ(texts, (std::vector<std::string>{"Run-time error '35601':\n\nElement not found"}));
  EXPECT_EQ(tree.selected(), "B");
}

TEST(ControlTest, ADisabledButtonAndAMissingItemDoNothing) {
  Button button("cmdDone", "&Done");
  int clicks = 0;
  button.onClick = [&] { ++clicks; };
  button.setEnabled(false);
  button.click();
  button.setEnabled(true);
  button.click();
  EXPECT_EQ(clicks, 1);

  ComboBox box("cmbRequest");
  box.AddItem("All Requests");
  std::string picked;
  box.onClick = [&] { picked = box.text(); };
  box.setText("All Requests");
  box.select(1);
  EXPECT_EQ(picked, "");
  box.select(0);
  EXPECT_EQ(picked, "All Requests");
}

}  // namespace
}  // namespace dg
