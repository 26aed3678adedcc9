#include <QAbstractButton>
#include <QAccessible>
#include <QFont>
#include <QScrollArea>
#include <QScrollBar>
#include <set>

#include "forms/look/look.h"
#include "forms/look/spacing.h"
#include "forms/look/style.h"
#include "forms/progress.h"
#include "forms/qt_dialogs.h"
#include "forms_test_support.h"

namespace kestrane {
namespace {

// Out of sight in the data already: parked beside the tabs, or storage without a view.
const std::set<std::string> kParked = {
    "lblControlPassword", "txtControlPassword", "lblAdminName",  "txtAdminName",
    "lblAdminPassword",   "txtAdminPassword",   "txtSalt",       "txtSHA(0)",
    "txtSHA(1)",          "txtSHA(2)",          "fraTimeServer", "fraMiscOptions"};

class LayoutTest : public FormsTest {
  protected:
    // Every label and button that is seen has the room that it asks for.
    void ExpectNothingCutOff(Form& shown) {
        FormWindow& window = windows_.WindowOf(shown);
        window.mirror().Refresh();
        window.resize(window.WholeSize());
        Settle();
        window.grab();
        for (Control* control : shown.controls()) {
            QWidget* view = window.mirror().WidgetOf(*control);
            if (!view || !control->Showing() || view->visibleRegion().isEmpty()) continue;
            const bool text = dynamic_cast<QLabel*>(view) || dynamic_cast<QAbstractButton*>(view) ||
                              dynamic_cast<QLineEdit*>(view);
            if (!text) continue;
            const auto* label = dynamic_cast<QLabel*>(view);
            const QSize wanted = label && label->wordWrap()
                                     ? QSize(view->width(), view->heightForWidth(view->width()))
                                     : view->minimumSizeHint();
            EXPECT_GE(view->width(), wanted.width()) << control->name();
            EXPECT_GE(view->height(), wanted.height()) << control->name();
            EXPECT_EQ(view->visibleRegion().boundingRect(), view->rect()) << control->name();
        }
    }

    void WalkTabs() {
        for (int tab = 0; tab < 8; ++tab) {
            SelectTab(tab);
            ExpectNothingCutOff(form());
        }
    }
};

TEST_F(LayoutTest, EveryControlHasAView) {
    for (int tab = 0; tab < 8; ++tab) SelectTab(tab);
    const auto walk = [this](Form& walked) {
        const Mirror& views = windows_.WindowOf(walked).mirror();
        for (Control* control : walked.controls()) {
            if (control->kind() == Kind::kTimer || kParked.count(control->name())) continue;
            EXPECT_NE(views.WidgetOf(*control), nullptr) << walked.name() << " " << control->name();
        }
    };
    walk(form());
    walk(tool_.login_form);
    walk(tool_.confirm_form);
    walk(tool_.help_form);
    walk(tool_.script_edit_form);
}

TEST_F(LayoutTest, NothingIsCutOff) { WalkTabs(); }

// With the longest texts in all boxes: within the window, and nowhere a way to scroll sideways.
TEST_F(LayoutTest, EverythingFitsTheSmallestWindow) {
    const auto fill = [](Form& filled) {
        for (Control* control : filled.controls()) {
            if (control->kind() != Kind::kTextBox) continue;
            auto& box = static_cast<TextBox&>(*control);
            box.SetText(std::string(static_cast<std::size_t>(std::max(box.MaxLength(), 3)), 'W'));
        }
    };
    const auto expect_fits = [this](Form& shown) {
        FormWindow& window = windows_.WindowOf(shown);
        window.mirror().Refresh();
        window.resize(kSmallestWidth, kSmallestHeight);
        Settle();
        window.grab();
        EXPECT_LE(window.minimumSizeHint().width(), kSmallestWidth) << shown.name();
        EXPECT_LE(window.minimumSizeHint().height(), kSmallestHeight) << shown.name();
        for (const QScrollArea* area : window.findChildren<QScrollArea*>()) {
            if (!area->isVisibleTo(&window) || !area->widget()) continue;
            EXPECT_LE(area->widget()->minimumSizeHint().width(), area->viewport()->width())
                << shown.name();
        }
        for (const Control* control : shown.controls()) {
            if (control->kind() != Kind::kButton || !control->Showing()) continue;
            const QWidget* view = window.mirror().WidgetOf(*control);
            if (!view || !view->isVisibleTo(&window)) continue;
            const QRect place(view->mapTo(&window, QPoint()), view->size());
            EXPECT_GE(place.left(), 0) << control->name();
            EXPECT_LE(place.right(), kSmallestWidth) << control->name();
        }
    };
    fill(form());
    for (int tab = 0; tab < 7; ++tab) {
        SelectTab(tab);
        expect_fits(form());
    }
    form().SetHeight(MainForm::kTallHeight);
    expect_fits(form());
    fill(tool_.script_edit_form);
    for (Label& name : tool_.script_edit_form.lblDesi) name.SetCaption("WWWWWWWW");
    expect_fits(tool_.script_edit_form);
}

TEST_F(LayoutTest, EveryControlHasANameAndARoleForScreenReaders) {
    for (int tab = 0; tab < 8; ++tab) SelectTab(tab);
    for (Form* walked : tool_.screen.forms()) {
        const Mirror& views = windows_.WindowOf(*walked).mirror();
        for (Control* control : walked->controls()) {
            QWidget* view = views.WidgetOf(*control);
            if (!view || !control->TakesFocus()) continue;
            QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(view);
            ASSERT_NE(seen, nullptr) << control->name();
            EXPECT_NE(seen->role(), QAccessible::NoRole) << control->name();
            EXPECT_FALSE(seen->text(QAccessible::Name).isEmpty() &&
                         view->accessibleName().isEmpty())
                << walked->name() << " " << control->name();
        }
    }
}

TEST_F(LayoutTest, NothingMovesWhenControlsAreDisabledOrDiagnosticsShown) {
    SelectTab(0);
    FormWindow& window = windows_.WindowOf(form());
    window.resize(kSmallestWidth, kSmallestHeight);
    Settle();
    auto* page = window.findChild<QScrollArea*>();
    page->verticalScrollBar()->setValue(20);
    const int scrolled = page->verticalScrollBar()->value();
    View(form().network.chkArmEnable).setFocus(Qt::TabFocusReason);
    for (Control* control : form().controls()) {
        if (control->kind() == Kind::kFrame) control->SetEnabled(false);
    }
    Settle();
    EXPECT_EQ(page->verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(window.size(), QSize(kSmallestWidth, kSmallestHeight));
}

TEST(LargeFontLayout, NothingIsCutOff) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * 1.6);
    QApplication::setFont(large);
    struct Walk : LayoutTest {
        void TestBody() override { WalkTabs(); }
    };
    Walk().TestBody();
    QApplication::setFont(usual);
}

TEST(Look, ColoursCanBeReadOnLightAndDark) {
    for (const Look look : {Look::kDark, Look::kLight}) {
        ApplyLook(look);
        const QPalette normal = QApplication::palette();
        for (const Colour fore : {kRed, kGreen, kOrange, kBlack}) {
            for (const Colour back : {kGreen, kRed, kOrange, Colour{0xC0FFC0}, Colour{0x8080FF}}) {
                const QPalette label = LabelPalette(normal, fore, {});
                const QPalette box = BoxPalette(normal, fore, {});
                const QPalette button = ButtonPalette(normal, {}, back);
                for (const auto group : {QPalette::Active, QPalette::Disabled}) {
                    const auto contrast = [group](const QPalette& palette, auto text, auto ground) {
                        return Contrast(palette.color(group, text), palette.color(group, ground));
                    };
                    EXPECT_GE(contrast(label, QPalette::WindowText, QPalette::Window), 4.5);
                    EXPECT_GE(contrast(box, QPalette::Text, QPalette::Base), 4.5);
                    EXPECT_GE(contrast(button, QPalette::ButtonText, QPalette::Button), 4.5);
                }
            }
        }
        for (const auto role : {QPalette::Base, QPalette::Window}) {
            EXPECT_GE(Contrast(OutlineColour(normal, true), normal.color(role)), 3.0);
        }
        EXPECT_LT(Contrast(OutlineColour(normal, false), normal.color(QPalette::Window)),
                  Contrast(OutlineColour(normal, true), normal.color(QPalette::Window)));
        for (const auto& colour : {GoodColour, WarningColour, FaultColour}) {
            EXPECT_GE(Contrast(colour(normal), normal.color(QPalette::Window)), 4.5);
        }
        const QPalette primary = PrimaryPalette(normal);
        EXPECT_GE(Contrast(primary.color(QPalette::ButtonText), primary.color(QPalette::Button)),
                  4.5);
        // Red stays red.
        EXPECT_GT(LabelPalette(normal, kRed, {}).color(QPalette::WindowText).hslSaturationF(), 0.5);
    }
}

TEST(ProgressText, IsFoundInTheStatusTexts) {
    const auto outlet = ParseProgress("Reading outlet name 9 of 14");
    ASSERT_TRUE(outlet);
    EXPECT_EQ(outlet->done, 9);
    EXPECT_EQ(outlet->total, 14);
    EXPECT_EQ(ParseProgress("Download  45%")->done, 45);
    EXPECT_EQ(ParseProgress("20 of 14")->done, 14);
    for (const char* none : {"", "Port closed by far end", "End of file", " of 14", "3 of 0", "%",
                             "99999999999999 of 14"}) {
        EXPECT_FALSE(ParseProgress(none)) << none;
    }
}

TEST(FileFilter, IsWrittenTheWayQtReadsIt) {
    EXPECT_EQ(QtFiles::NameFilters("Kestrane Macro Files (*.sms)|*.sms|All|*.*"),
              (std::vector<std::string>{"Kestrane Macro Files (*.sms)", "All (*)"}));
}

}  // namespace
}  // namespace kestrane
