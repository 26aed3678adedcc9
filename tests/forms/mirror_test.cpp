#include <QClipboard>
#include <QHelpEvent>
#include <QMenu>
#include <QTabBar>
#include <QToolButton>
#include <QToolTip>
#include <QWindow>
#include <set>

#include "forms/look/look.h"
#include "forms_test_support.h"

namespace kestrane {
namespace {

class MirrorTest : public FormsTest {
  protected:
    NetworkTab& network() { return form().network; }
};

TEST_F(MirrorTest, KeysPassTheFilterAndLandInTheModel) {
    TextBox& box = network().txtSubnetMask;
    Reach(box);
    auto& view = View<TextBoxView>(box);
    view.setFocus(Qt::TabFocusReason);
    Settle();
    EXPECT_EQ(form().Focused(), &box);
    QTest::keyClicks(&view, "1x2.");
    EXPECT_EQ(box.Text(), "12.");
    EXPECT_EQ(view.text(), "12.");
    EXPECT_EQ(world_.sound.beeps(), 1);
    QTest::keyClick(&view, Qt::Key_Home);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(box.Text(), "2.");
    QTest::keyClick(&view, Qt::Key_End);
    QTest::keyClick(&view, Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), "2");
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&view, "7");
    EXPECT_EQ(box.Text(), "7");
    EXPECT_EQ(view.text(), "7");
}

TEST_F(MirrorTest, CharactersWithoutAByteBeepAndTypeNothing) {
    TextBox& box = network().txtUnitName;
    Reach(box);
    auto& view = View<TextBoxView>(box);
    QTest::sendKeyEvent(QTest::Click, &view, Qt::Key_unknown, QString(QChar(0x20AC)),
                        Qt::NoModifier);
    EXPECT_EQ(box.Text(), "");
    EXPECT_EQ(world_.sound.beeps(), 1);
    QTest::sendKeyEvent(QTest::Click, &view, Qt::Key_unknown, QString(QChar(0xE9)), Qt::NoModifier);
    EXPECT_EQ(box.Text(), "\xE9");
}

TEST_F(MirrorTest, BytesThatAWidgetCantShowSurviveAnEdit) {
    TextBox& box = network().txtUnitName;
    Reach(box);
    auto& view = View<TextBoxView>(box);
    box.SetText(std::string("\0A\xFF\x01", 4));
    tool_.hand.GoTo(box);
    Settle();
    EXPECT_EQ(view.selectionLength(), 4);
    QTest::keyClick(&view, Qt::Key_End);
    QTest::keyClicks(&view, "z");
    EXPECT_EQ(box.Text(), std::string("\0A\xFF\x01z", 5));
    view.clearFocus();
    Settle();
    EXPECT_EQ(box.Text(), std::string("\0A\xFF\x01z", 5));
}

TEST_F(MirrorTest, PastesAreFilteredAndCut) {
    TextBox& box = network().txtOledTimeout;
    Reach(box);
    auto& view = View<TextBoxView>(box);
    QGuiApplication::clipboard()->setText("1a2b345");
    QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "1234");
    EXPECT_EQ(view.text(), "1234");
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "1234");
}

TEST_F(MirrorTest, LockedBoxesTakeNothing) {
    TextBox& box = network().txtKeyCounter(0);
    Reach(box);
    box.SetText("55");
    auto& view = View<TextBoxView>(box);
    QGuiApplication::clipboard()->setText("1");
    QTest::keyClicks(&view, "9");
    QTest::keyClick(&view, Qt::Key_Delete);
    QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "55");
}

TEST_F(MirrorTest, FramesDisableWhatStandsInThemButNotWhatIsDrawnThere) {
    Reach(form().txtCurrentPort);
    EXPECT_TRUE(View(form().txtCurrentPort).isEnabled());
    form().fraIPAddress.SetEnabled(false);
    Settle();
    EXPECT_FALSE(View(form().txtCurrentPort).isEnabled());
    EXPECT_TRUE(View(form().cmdDisconnect).isEnabled());
}

TEST_F(MirrorTest, HiddenControlsAreHidden) {
    CheckBox& box = form().privileges.chkPriv(115);
    SelectTab(1);
    EXPECT_FALSE(View(box).isHidden());
    box.SetVisible(false);
    Settle();
    EXPECT_TRUE(View(box).isHidden());
}

TEST_F(MirrorTest, TabsFollowTheModelAlone) {
    auto& tabs = View<QTabWidget>(form().SSTab1);
    EXPECT_EQ(tabs.currentIndex(), 0);
    for (const int hidden : {6, 7, 8}) EXPECT_FALSE(tabs.isTabVisible(hidden));
    EXPECT_FALSE(tabs.isTabEnabled(3));
    for (const int tab : {0, 3}) form().SSTab1.SetTabEnabled(tab, true);
    Settle();
    tabs.setCurrentIndex(3);  // as a click on the tab bar does
    Settle();
    EXPECT_EQ(form().SSTab1.Tab(), 3);
    // A disabled tab is not for the hand, and the view goes back.
    tabs.setCurrentIndex(4);
    Settle();
    EXPECT_EQ(form().SSTab1.Tab(), 3);
    EXPECT_EQ(tabs.currentIndex(), 3);
    for (int tab = 0; tab < 9; ++tab) form().SSTab1.SetTabEnabled(tab, false);
    Settle();
    // What stands on the page of a disabled tab stays usable.
    EXPECT_TRUE(View(form().names.lblMain).parentWidget()->isEnabled());
    EXPECT_EQ(form().SSTab1.Tab(), 3);
    EXPECT_EQ(tabs.currentIndex(), 3);
}

TEST_F(MirrorTest, ClicksRunAsEventsOfTheirOwn) {
    CheckBox& box = network().chkDHCP;
    Reach(box);
    auto& view = View<QCheckBox>(box);
    QTest::mouseClick(&view, Qt::LeftButton, {}, {8, view.height() / 2});
    EXPECT_FALSE(box.Checked());
    EXPECT_FALSE(view.isChecked());
    Settle();
    EXPECT_TRUE(box.Checked());
    EXPECT_TRUE(view.isChecked());
    EXPECT_EQ(form().Focused(), &box);
}

TEST_F(MirrorTest, OptionButtonsExcludeEachOtherInTheModel) {
    Reach(form().OptButID(3));
    QTest::mouseClick(&View<QRadioButton>(form().OptButID(3)), Qt::LeftButton, {}, {8, 8});
    Settle();
    EXPECT_TRUE(form().OptButID(3).Chosen());
    EXPECT_FALSE(View<QRadioButton>(form().OptButID(250)).isChecked());
    // One stop of the Tab key; arrows choose the next that can be used, and go round.
    for (const int id : {250, 0, 1, 2, 3, 4}) {
        EXPECT_EQ(View(form().OptButID(id)).focusPolicy() == Qt::StrongFocus, id == 3) << id;
    }
    form().OptButID(4).SetEnabled(false);
    Settle();
    QTest::keyClick(&View(form().OptButID(3)), Qt::Key_Down);
    Settle();
    EXPECT_TRUE(form().OptButID(250).Chosen());
    EXPECT_EQ(form().Focused(), &form().OptButID(250));
    EXPECT_EQ(View(form().OptButID(250)).window()->focusWidget(), &View(form().OptButID(250)));
    QTest::keyClick(&View(form().OptButID(250)), Qt::Key_Left);
    Settle();
    EXPECT_TRUE(form().OptButID(3).Chosen());
}

TEST_F(MirrorTest, TheMouseLeavesABoxOnlyWhenItIsUpAgain) {
    TextBox& from = network().txtIPAddress;
    Reach(from);
    tool_.hand.Type(from, "10.0.0.1");
    Settle();
    auto& button = View<QPushButton>(form().cmdDisconnect);
    QTest::mousePress(&button, Qt::LeftButton);
    button.setFocus(Qt::MouseFocusReason);
    Settle();
    EXPECT_EQ(form().Focused(), &from);
    EXPECT_TRUE(world_.boxes.shown().empty());
    QTest::mouseRelease(&button, Qt::LeftButton);
    Settle();
    EXPECT_EQ(world_.boxes.shown().size(), 1u);
}

TEST_F(MirrorTest, TheModelsFocusIsShown) {
    TextBox& box = network().txtIPAddress;
    Reach(box);
    form().SetFocus(box);
    Settle();
    EXPECT_EQ(View(form().cmdHelp).window()->focusWidget(), &View(box));
    form().ClearFocus();
    Settle();
    EXPECT_NE(View(form().cmdHelp).window()->focusWidget(), &View(box));
    EXPECT_EQ(form().Focused(), nullptr);
}

TEST_F(MirrorTest, TabGoesThroughTheFormInItsOrder) {
    for (Control* control : form().controls()) {
        if (control->kind() == Kind::kFrame) control->SetEnabled(true);
    }
    Settle();
    const std::vector<Control*> order = {&form().txtCurrentIPAddress, &form().txtCurrentPort,
                                         &form().txtTimeout,          &form().cmdConnect,
                                         &form().cmdDisconnect,       &form().OptButID(250)};
    View(*order.front()).setFocus(Qt::TabFocusReason);
    QWidget* window = View(form().cmdHelp).window();
    for (Control* expected : order) {
        EXPECT_EQ(window->focusWidget()->objectName().toStdString(), expected->name());
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        Settle();
    }
    View(network().txtUnitLocation).setFocus(Qt::TabFocusReason);
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    Settle();
    EXPECT_EQ(form().Focused(), &network().txtUnitName);
}

TEST_F(MirrorTest, DisabledControlsTellWhy) {
    network().lblSnmpPort.SetEnabled(false);
    Settle();
    const auto tip = [this](const Control& control) {
        QWidget& view = View(control);
        QHelpEvent event(QEvent::ToolTip, view.rect().center(), QPoint(10, 10));
        QApplication::sendEvent(&view, &event);
        return QToolTip::text();
    };
    EXPECT_EQ(tip(network().cmdReadNetworkSettings), "Connect to a unit first");
    EXPECT_EQ(tip(network().lblSnmpPort),
              "SNMP port is fixed at 161.\nA blank community string will disable SNMP port on "
              "reset\n\nConnect to a unit first");
    EXPECT_TRUE(tip(network().txtOledTimeout).contains("From 0 to 2540 in steps of 10."));
}

TEST_F(MirrorTest, LabelsAreReadableBesideUsableBoxesAndGreyOverEmptyPanels) {
    form().lblTimeout.SetEnabled(false);
    network().lblIPAddress.SetForeColor(kRed);
    Settle();
    EXPECT_TRUE(View(form().lblTimeout).isEnabled());
    const QWidget& label = View(network().lblIPAddress);
    EXPECT_FALSE(label.isEnabled());
    EXPECT_EQ(label.palette().color(QPalette::Disabled, QPalette::WindowText),
              QApplication::palette().color(QPalette::Disabled, QPalette::WindowText));
    EXPECT_EQ(View(form().cmdConnect).palette().color(QPalette::Active, QPalette::Button),
              PrimaryPalette(QApplication::palette()).color(QPalette::Active, QPalette::Button));
}

TEST_F(MirrorTest, AddressesOfThisRunAreOffered) {
    auto& box = View<QLineEdit>(form().txtCurrentIPAddress);
    auto* const offer = box.parentWidget()->findChild<QToolButton*>();
    EXPECT_FALSE(offer->isEnabled());
    for (const char* host : {"10.0.0.7", "10.0.0.8"}) {
        tool_.hand.Type(form().txtCurrentIPAddress, host);
        tool_.hand.Click(form().cmdConnect);
        world_.RunFor(std::chrono::milliseconds{250});
        EXPECT_FALSE(offer->isEnabled());
        tool_.hand.Click(form().cmdDisconnect);
        world_.RunFor(std::chrono::milliseconds{250});
    }
    tool_.hand.GoTo(form().txtCurrentIPAddress);
    Settle();
    QTest::keyClick(&box, Qt::Key_Down);
    auto* const menu = offer->findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    menu->actions()[1]->trigger();
    Settle();
    EXPECT_EQ(form().txtCurrentIPAddress.Text(), "10.0.0.7");
}

TEST_F(MirrorTest, CtrlAloneShowsAndHidesTheDiagnostics) {
    QWindow* window = View(form().cmdHelp).window()->windowHandle();
    const QSize size = window->size();
    const auto press_alone = [&] {
        QTest::keyClick(window, Qt::Key_Control);
        Settle();
    };
    press_alone();
    EXPECT_EQ(form().Height(), MainForm::kTallHeight);
    EXPECT_TRUE(View(form().Label2).isVisible());
    // The second is a shortcut, which no window sees as a key.
    for (const Qt::Key key : {Qt::Key_C, Qt::Key_Z}) {
        QTest::keyPress(window, Qt::Key_Control);
        QTest::keyPress(window, key, Qt::ControlModifier);
        QTest::keyRelease(window, Qt::Key_Control);
        QTest::keyRelease(window, key);
        Settle();
        EXPECT_TRUE(View(form().Label2).isVisible());
    }
    View(form().Label2).setFocus();
    press_alone();
    EXPECT_FALSE(View(form().Label2).isVisible());
    EXPECT_EQ(window->size(), size);
}

TEST_F(MirrorTest, HugeTextsShowTheirBeginning) {
    form().Label1.SetCaption(std::string(3'000'000, '7'));
    Settle();
    form().SetHeight(MainForm::kTallFrom);
    Settle();
    const QString shown = View<QPlainTextEdit>(form().Label1).toPlainText();
    EXPECT_LT(shown.size(), 4096);
    EXPECT_TRUE(shown.endsWith("(3000000 characters)"));
}

TEST_F(MirrorTest, ClosingTheMainWindowEndsTheProgram) {
    View(form().cmdHelp).window()->close();
    EXPECT_THROW(Settle(), ProgramEnded);
    EXPECT_EQ(world_.loop.exit_status(), 0);
}

TEST_F(MirrorTest, ModalFormsComeAndGo) {
    HelpForm& help = tool_.help_form;
    form().cmdHelp.on_click = [&] { tool_.screen.ShowModal(help); };
    bool open = false;
    world_.time.After(std::chrono::milliseconds{20}, [&] {
        open = View(help.OKButton).isVisible();
        QTest::keyClick(View(help.OKButton).window(), Qt::Key_Return);
    });
    help.OKButton.on_click = [&] { tool_.screen.Hide(help); };
    QTest::mouseClick(&View<QPushButton>(form().cmdHelp), Qt::LeftButton);
    Settle();
    EXPECT_TRUE(open);
    EXPECT_FALSE(help.Visible());
    EXPECT_FALSE(View(help.OKButton).isVisible());
}

TEST_F(MirrorTest, TheListingIsWorkedByKeyboardAndMouse) {
    ScriptEditForm& editor = tool_.script_edit_form;
    std::vector<int> clicked;
    for (Label& row : editor.lblCommand) {
        row.on_click = [&clicked, &row] { clicked.push_back(row.index()); };
    }
    editor.scrListScroll.on_change = {};
    for (int i = 0; i < 16; ++i) editor.shpOutline(i).SetVisible(i == 5);
    world_.time.After(std::chrono::milliseconds{20}, [&] {
        auto& row = View<QLabel>(editor.lblCommand(2));
        EXPECT_TRUE(QTest::qWaitForWindowActive(row.window()));
        row.setFocus(Qt::MouseFocusReason);
        QTest::mouseClick(&row, Qt::LeftButton);
        Settle();
        EXPECT_EQ(editor.Focused(), &editor.scrListScroll);
        auto& bar = View<QScrollBar>(editor.scrListScroll);
        QTest::keyClick(&bar, Qt::Key_Down);
        QTest::keyClick(&bar, Qt::Key_PageDown);
        Settle();
        QTest::keyClick(&bar, Qt::Key_Return);
        Settle();
        tool_.screen.Hide(editor);
    });
    const auto load = std::exchange(editor.on_load, nullptr);
    const auto activate = std::exchange(editor.on_activate, nullptr);
    tool_.screen.ShowModal(editor);
    EXPECT_EQ(clicked, (std::vector<int>{2, 5}));
    EXPECT_EQ(editor.scrListScroll.ScrollValue(), 33);
}

}  // namespace
}  // namespace kestrane
