#include "forms/binders.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTabBar>
#include <algorithm>

#include "forms/latin1.h"
#include "forms/look/look.h"
#include "forms/look/style.h"
#include "forms/mirror.h"

namespace kestrane {

// Label

LabelBinder::LabelBinder(Mirror& mirror, Label& label, QLabel& view)
    : Binder(mirror, label, view), label_(label), view_(view) {
    view.setTextFormat(Qt::PlainText);
}

// A number that comes with a blank for its sign stands in its column without.
void LabelBinder::SyncKind() {
    if (shown_ == label_.Caption()) return;
    shown_ = label_.Caption();
    const QString text = ToQtLines(shown_);
    bool number = false;
    text.toLongLong(&number);
    view_.setText(number ? text.trimmed() : text);
}

bool LabelBinder::eventFilter(QObject* watched, QEvent* event) {
    const bool taken = Binder::eventFilter(watched, event);
    Control* const target = label_.on_click ? &label_ : click_target_;
    if (event->type() == QEvent::MouseButtonRelease && target) {
        const auto& mouse = static_cast<QMouseEvent&>(*event);
        if (mouse.button() == Qt::LeftButton && view_.rect().contains(mouse.pos())) {
            mirror_.Click(*target);
        }
    }
    return taken;
}

LongTextBinder::LongTextBinder(Mirror& mirror, Label& label, LongTextView& view)
    : Binder(mirror, label, view), label_(label), view_(view) {
    Watch(*view.viewport());
}

void LongTextBinder::SyncKind() { view_.Show(label_.Caption()); }

// Button

ButtonBinder::ButtonBinder(Mirror& mirror, Button& button, QPushButton& view)
    : Binder(mirror, button, view), button_(button), view_(view) {
    view.setAutoDefault(false);
    QObject::connect(&view, &QPushButton::clicked, this, [this] { mirror_.Click(button_); });
}

void ButtonBinder::SyncKind() {
    const QString caption = ToQt(button_.Caption());
    if (view_.text() != caption) view_.setText(caption);
}

QPalette ButtonBinder::MakePalette(const QPalette& palette) const {
    const bool plain = !button_.BackColor() || !ToQColor(*button_.BackColor()).isValid();
    if (plain && view_.property(kPrimary).toBool()) return PrimaryPalette(palette);
    return ButtonPalette(palette, button_.ForeColor(), button_.BackColor());
}

bool ButtonBinder::HasOwnPalette() const { return view_.property(kPrimary).toBool(); }

// CheckBox, OptionButton: the widget waits for the model.

CheckBoxBinder::CheckBoxBinder(Mirror& mirror, CheckBox& box, QCheckBox& view)
    : Binder(mirror, box, view), box_(box), view_(view) {
    view.setText(ToQt(box.Caption()));
    QObject::connect(&view, &QCheckBox::clicked, this, [this] {
        view_.setChecked(box_.Checked());
        mirror_.Click(box_);
    });
}

void CheckBoxBinder::SyncKind() {
    if (view_.isChecked() != box_.Checked()) view_.setChecked(box_.Checked());
}

OptionButtonBinder::OptionButtonBinder(Mirror& mirror, OptionButton& option, QRadioButton& view)
    : Binder(mirror, option, view), option_(option), view_(view) {
    view.setText(ToQt(option.Caption()));
    view.setAutoExclusive(false);
    QObject::connect(&view, &QRadioButton::clicked, this, [this] {
        view_.setChecked(option_.Chosen());
        mirror_.Click(option_);
    });
}

void OptionButtonBinder::SyncKind() {
    if (view_.isChecked() != option_.Chosen()) view_.setChecked(option_.Chosen());
    const std::vector<OptionButton*> options = Options();
    const auto chosen = std::find_if(options.begin(), options.end(),
                                     [](const OptionButton* option) { return option->Chosen(); });
    const OptionButton* const stop = chosen == options.end() ? options.front() : *chosen;
    for (const OptionButton* option : options) {
        QWidget* const view = mirror_.WidgetOf(*option);
        if (view) view->setFocusPolicy(option == stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

std::vector<OptionButton*> OptionButtonBinder::Options() const {
    std::vector<OptionButton*> options;
    for (Control* control : option_.form().controls()) {
        if (control->kind() == Kind::kOptionButton && control->base_name() == option_.base_name()) {
            options.push_back(static_cast<OptionButton*>(control));
        }
    }
    return options;
}

bool OptionButtonBinder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool back = key == Qt::Key_Left || key == Qt::Key_Up;
        if (back || key == Qt::Key_Right || key == Qt::Key_Down) {
            ChooseNext(back ? -1 : 1);
            return true;
        }
    }
    return Binder::eventFilter(watched, event);
}

// Goes round.
void OptionButtonBinder::ChooseNext(int step) {
    const std::vector<OptionButton*> options = Options();
    const auto count = static_cast<int>(options.size());
    const auto here =
        static_cast<int>(std::find(options.begin(), options.end(), &option_) - options.begin());
    for (int moved = 1; moved < count; ++moved) {
        const int next = (here + step * moved + count * moved) % count;
        OptionButton& option = *options[static_cast<std::size_t>(next)];
        if (option.Usable()) return mirror_.Click(option);
    }
}

// ComboBox

ComboBoxBinder::ComboBoxBinder(Mirror& mirror, ComboBox& box, QComboBox& view)
    : Binder(mirror, box, view), box_(box), view_(view) {
    view.setSizeAdjustPolicy(QComboBox::AdjustToContents);
    QObject::connect(&view, &QComboBox::activated, this,
                     [this](int index) { mirror_.Choose(box_, index); });
}

void ComboBoxBinder::SyncKind() {
    if (items_ != box_.Items()) {
        items_ = box_.Items();
        view_.clear();
        for (const std::string& item : items_) view_.addItem(ToQt(item));
    }
    view_.setCurrentIndex(box_.ListIndex());
}

// The wheel over a box that is not in use would change it by accident.
bool ComboBoxBinder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && !view_.hasFocus()) {
        event->ignore();
        return true;
    }
    return Binder::eventFilter(watched, event);
}

// ScrollBar

ScrollBarBinder::ScrollBarBinder(Mirror& mirror, ScrollBar& bar, QScrollBar& view)
    : Binder(mirror, bar, view), bar_(bar), view_(view) {
    view.setFocusPolicy(Qt::StrongFocus);
    QObject::connect(&view, &QScrollBar::valueChanged, this, [this](int value) {
        if (!mirror_.syncing()) mirror_.Choose(bar_, value);
    });
}

void ScrollBarBinder::SyncKind() {
    view_.setRange(bar_.Min(), bar_.Max());
    view_.setSingleStep(bar_.SmallChange());
    view_.setPageStep(bar_.LargeChange());
    // A slider that is being dragged runs ahead of the model.
    if (!view_.isSliderDown()) view_.setValue(bar_.ScrollValue());
}

bool ScrollBarBinder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && !view_.hasFocus() &&
        view_.focusPolicy() != Qt::WheelFocus) {
        event->ignore();
        return true;
    }
    return Binder::eventFilter(watched, event);
}

// TabControl

TabBinder::TabBinder(Mirror& mirror, TabControl& tabs, QTabWidget& view,
                     std::function<void(int)> page_needed)
    : Binder(mirror, tabs, view), tabs_(tabs), view_(view), page_needed_(std::move(page_needed)) {
    Watch(*view.tabBar());
    QObject::connect(&view, &QTabWidget::currentChanged, this, [this](int tab) {
        if (!mirror_.syncing()) mirror_.Choose(tabs_, tab);
    });
}

// Disabling or hiding the current tab makes Qt jump to another one: the model's tab is set last.
// The tab bar is told, not the tab widget, which would disable the page with its tab.
void TabBinder::SyncKind() {
    for (int i = 0; i < tabs_.TabCount(); ++i) {
        const TabState& tab = tabs_.Tabs()[static_cast<std::size_t>(i)];
        if (view_.isTabEnabled(i) != tab.enabled) view_.tabBar()->setTabEnabled(i, tab.enabled);
        if (view_.isTabVisible(i) != tab.visible) view_.setTabVisible(i, tab.visible);
    }
    page_needed_(tabs_.Tab());
    view_.setCurrentIndex(tabs_.Tab());
}

QString TabBinder::TipAt(const QPoint& place) const {
    const int tab = view_.tabBar()->tabAt(place);
    return tab < 0 ? QString() : Reason(view_.isTabEnabled(tab));
}

// Frame

FrameBinder::FrameBinder(Mirror& mirror, Frame& frame, FrameView& view)
    : Binder(mirror, frame, view), frame_(frame), view_(view) {}

void FrameBinder::SyncKind() {
    view_.SetTitle(ToQt(frame_.Caption()));
    view_.SetTitleColours(
        LabelPalette(QApplication::palette(&view_), frame_.ForeColor(), frame_.BackColor()));
}

// Light

LightBinder::LightBinder(Mirror& mirror, Light& light, LightView& view)
    : Binder(mirror, light, view), light_(light), view_(view) {}

// Shape

ShapeBinder::ShapeBinder(Mirror& mirror, Shape& shape, RowView& view)
    : Binder(mirror, shape, view), view_(view) {}

bool ShapeBinder::SyncVisible() {
    view_.SetMarked(control().Visible());
    return false;
}

}  // namespace kestrane
