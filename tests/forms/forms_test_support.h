#pragma once

// The windows of a whole tool on virtual time: Qt events come from the test, everything else from
// the virtual loop.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "forms/windows.h"
#include "support/virtual_platform.h"
#include "tool/tool.h"

namespace kestrane {

class FormsTest : public testing::Test {
  protected:
    FormsTest() {
        tool_.Start();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&windows_.WindowOf(tool_.main_form)));
    }

    // Posted actions, refreshes and Qt's own events run; timers don't get far enough to tick.
    void Settle() {
        world_.RunFor(std::chrono::milliseconds{0});
        QCoreApplication::processEvents();
        world_.RunFor(std::chrono::milliseconds{0});
    }

    MainForm& form() { return tool_.main_form; }
    Mirror& mirror() { return windows_.WindowOf(form()).mirror(); }
    template <class W = QWidget>
    W& View(const Control& control) {
        FormWindow& window = windows_.WindowOf(control.form());
        auto* widget = dynamic_cast<W*>(window.mirror().WidgetOf(control));
        if (!widget) throw std::logic_error("no widget for " + control.name());
        return *widget;
    }

    void Reach(Control& control) {
        for (Container* at = &control.container(); at != nullptr; at = at->parent()) {
            if (auto* frame = dynamic_cast<Frame*>(at)) frame->SetEnabled(true);
        }
        control.SetEnabled(true);
        Settle();
        EXPECT_EQ(tool_.hand.CheckUsable(control), std::nullopt);
    }

    void SelectTab(int tab) {
        form().SSTab1.SetTabVisible(tab, true);
        form().SSTab1.SetTab(tab);
        Settle();
    }

    VirtualPlatform world_;
    Tool tool_{world_.platform()};
    Workbench bench_{tool_};
    Windows windows_{bench_};
};

}  // namespace kestrane
