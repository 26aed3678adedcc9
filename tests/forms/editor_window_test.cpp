// What the macro editor's window shows and takes beside its controls.

#include <QClipboard>
#include <QLabel>
#include <QScrollBar>

#include "forms/simulation_pane.h"
#include "forms_test_support.h"

namespace kestrane {
namespace {

class EditorWindowTest : public FormsTest {
  protected:
    ScriptEditForm& editor = tool_.script_edit_form;

    // Runs `body` in the open editor, without a unit.
    void InEditor(const std::function<void()>& body) {
        tool_.session.CheckPassword();
        world_.time.After(std::chrono::milliseconds{20}, [&] {
            Settle();
            body();
            tool_.session.MacroChanged = false;
            EXPECT_EQ(tool_.hand.Close(editor), std::nullopt);
        });
        tool_.screen.ShowModal(editor);
    }
    ScriptEditWindow& Window() {
        return dynamic_cast<ScriptEditWindow&>(windows_.WindowOf(editor));
    }
    RowMarks Marks(int row) { return View<ListingRow>(editor.shpOutline(row)).marks(); }
    void Press(Control& control) {
        EXPECT_EQ(tool_.hand.Click(control), std::nullopt);
        Settle();
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(&View(editor.scrListScroll), key, modifiers);
        Settle();
    }
};

TEST_F(EditorWindowTest, SaysWhereAnInsertLandsWhatChangedAndWhatIsWrong) {
    InEditor([&] {
        auto* heading = Window().findChild<QLabel*>("insertHeading");
        auto* said = Window().findChild<QLabel*>("lastAction");
        ASSERT_TRUE(heading && said);
        tool_.hand.Choose(editor.scrListScroll, 0x12);
        Settle();
        EXPECT_EQ(heading->text(), "Insert at 12:");
        EXPECT_TRUE(Marks(2).insert);
        EXPECT_FALSE(Marks(1).insert);
        Press(editor.cmdInsertCommand(1));  // GOTO 00
        EXPECT_EQ(said->text(), "Changed line 12");
        EXPECT_EQ(Marks(2).finding, RowMarks::Finding::kError);
        // In trace the cursor goes its own way; the mark stays.
        Press(editor.chkTrace);
        tool_.hand.Choose(editor.scrListScroll, 0x16);
        Settle();
        EXPECT_TRUE(Marks(2).insert);
        EXPECT_TRUE(View<RowView>(editor.shpOutline(6)).marked());
    });
}

TEST_F(EditorWindowTest, UndoesCopiesAndPastesByKeys) {
    InEditor([&] {
        Press(editor.cmdBasicSettings);
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(editor.lblMem1(0).Caption(), "00");
        Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(editor.lblMem1(0).Caption(), "C6");
        Key(Qt::Key_Down, Qt::NoModifier);  // Shift is up again
        tool_.hand.Choose(editor.scrListScroll, 0x1A);
        Settle();
        Key(Qt::Key_C, Qt::ControlModifier);
        const QString copied = QGuiApplication::clipboard()->text();
        EXPECT_TRUE(copied.contains("outlet 1", Qt::CaseInsensitive)) << copied.toStdString();
        QGuiApplication::clipboard()->setText("again: " + copied.trimmed() + "\n GOTO again\n");
        tool_.hand.Choose(editor.scrListScroll, 0x40);
        Settle();
        Key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(tool_.macro_editor.state().image.Opcode(0x40), 0x40);
        EXPECT_EQ(tool_.macro_editor.state().image.SecondByte(0x41), 0x40);
        EXPECT_EQ(Marks(0x40 - tool_.macro_editor.state().ListTop).names, "again");
        QGuiApplication::clipboard()->setText("no instruction");
        Key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(world_.boxes.shown().back().title, "Not pasted.");

        // Lines typed one after the other, as fast as they come.
        tool_.hand.Choose(editor.scrListScroll, 0x50);
        Settle();
        Key(Qt::Key_L, Qt::ControlModifier);
        auto* const line = Window().findChild<QLineEdit*>("sourceLine");
        ASSERT_EQ(Window().focusWidget(), line);
        for (const char* text : {"OFF 6 1", "Stop"}) {
            QTest::keyClicks(line, text);
            QTest::keyClick(line, Qt::Key_Return);
            Settle();
        }
        EXPECT_EQ(tool_.macro_editor.state().image.Opcode(0x50), 0x35);
        EXPECT_EQ(tool_.macro_editor.state().MemPointer, 0x52);
        QTest::keyClicks(line, "OFF 77");
        QTest::keyClick(line, Qt::Key_Return);
        Settle();
        EXPECT_EQ(world_.boxes.shown().back().title, "Not inserted.");
        EXPECT_EQ(line->text(), "OFF 77");
        EXPECT_EQ(Window().focusWidget(), line);
    });
}

// Nothing scrolls that fits.
TEST_F(EditorWindowTest, TheInstructionsNeedNoBarOnALargeScreen) {
    InEditor([&] {
        Window().resize(1590, 900);
        Settle();
        for (ScrollingPage* page : Window().findChildren<ScrollingPage*>()) {
            EXPECT_EQ(page->verticalScrollBar()->maximum(), 0);
        }
    });
}

TEST_F(EditorWindowTest, SimulatesWithoutAUnit) {
    InEditor([&] {
        Press(editor.cmdBasicSettings);
        Key(Qt::Key_F6, Qt::NoModifier);
        auto* pane = Window().findChild<SimulationPane*>("simulationPane");
        ASSERT_TRUE(pane && pane->isVisible());
        EXPECT_TRUE(Marks(0).runs);
        pane->Step();
        EXPECT_TRUE(Marks(1).runs);
        EXPECT_FALSE(Marks(0).runs);
        pane->Pass(std::chrono::seconds{20});
        EXPECT_FALSE(pane->unit().Runner().Running());
        // The switch goes off and on again: the standard program turns the outlets on.
        auto* on_switch = pane->findChild<QPushButton*>("Switch on");
        ASSERT_TRUE(on_switch);
        on_switch->click();
        pane->Pass(std::chrono::seconds{20});
        EXPECT_EQ(pane->unit().Runner().Live().outlets_on, 0);
        on_switch->click();
        pane->Pass(std::chrono::seconds{20});
        EXPECT_EQ(pane->unit().Runner().Live().outlets_on, simulation::kAllOutlets);
        EXPECT_TRUE(world_.tcpsend.sent().empty());
    });
    EXPECT_FALSE(Window().findChild<SimulationPane*>("simulationPane")->isVisible());
}

}  // namespace
}  // namespace kestrane
