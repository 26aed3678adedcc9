#include "forms/small_windows.h"

#include "forms/layout.h"

namespace kestrane {
namespace {

constexpr int kTextColumns = 60;

QVBoxLayout* Outer(QWidget* window) {
    auto* outer = new QVBoxLayout(window);
    outer->setContentsMargins(2 * kMargin, 2 * kMargin, 2 * kMargin, kMargin);
    outer->setSpacing(kBetweenFrames);
    return outer;
}

QLabel* Paragraph(Mirror& mirror, Label& label) {
    QLabel* text = mirror.Make(label);
    text->setWordWrap(true);
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * kTextColumns);
    return text;
}

// A label whose "&" marks the key that leads to its box.
void AddKeyedField(Mirror& mirror, QGridLayout* grid, int row, Label& label, TextBox& box) {
    QLabel* text = mirror.Make(label);
    TextBoxView* view = mirror.Make(box, 24);
    text->setBuddy(view);
    grid->addWidget(text, row, 0);
    grid->addWidget(view, row, 1);
    grid->setColumnStretch(2, 1);
}

QHBoxLayout* ButtonsRight(Mirror& mirror, std::initializer_list<Button*> buttons) {
    QHBoxLayout* row = Row();
    row->addStretch(1);
    for (Button* button : buttons) row->addWidget(mirror.Make(*button));
    return row;
}

}  // namespace

LoginWindow::LoginWindow(LoginForm& form, Hand& hand, WhyDisabledFunction why_disabled,
                         QWidget* owner)
    : FormWindow(form, hand, std::move(why_disabled), owner) {
    QVBoxLayout* outer = Outer(this);
    outer->addWidget(Paragraph(mirror_, form.Label1));
    auto* grid = new QGridLayout;
    grid->setSpacing(kGap);
    AddKeyedField(mirror_, grid, 0, form.lblLabels(0), form.txtName);
    AddKeyedField(mirror_, grid, 1, form.lblLabels(1), form.txtPassword);
    outer->addLayout(grid);
    outer->addLayout(ButtonsRight(mirror_, {&form.cmdOK, &form.cmdCancel}));
    ChainFocus(mirror_.TakeMade());
    SetKeys(&form.cmdOK, &form.cmdCancel);
}

ConfirmPasswordWindow::ConfirmPasswordWindow(ConfirmPasswordForm& form, Hand& hand,
                                             WhyDisabledFunction why_disabled, QWidget* owner)
    : FormWindow(form, hand, std::move(why_disabled), owner) {
    QVBoxLayout* outer = Outer(this);
    outer->addWidget(Paragraph(mirror_, form.lblConfirmPassword));
    auto* grid = new QGridLayout;
    grid->setSpacing(kGap);
    AddKeyedField(mirror_, grid, 0, form.lblLabels, form.txtNewPassword);
    outer->addLayout(grid);
    outer->addLayout(ButtonsRight(mirror_, {&form.cmdPasswordOK}));
    ChainFocus(mirror_.TakeMade());
    SetKeys(&form.cmdPasswordOK, nullptr);
}

// A help page may be longer than a small screen is high.
HelpWindow::HelpWindow(HelpForm& form, Hand& hand, WhyDisabledFunction why_disabled, QWidget* owner)
    : FormWindow(form, hand, std::move(why_disabled), owner) {
    QVBoxLayout* outer = Outer(this);
    auto* holder = new ScrollingPage;
    auto* texts = new QWidget;
    auto* column = new QVBoxLayout(texts);
    column->setContentsMargins(0, 0, kMargin, 0);
    column->setSpacing(kBetweenFrames);
    for (Label* label : {&form.lblHelp1, &form.lblHelp2, &form.lblHelp3}) {
        column->addWidget(Paragraph(mirror_, *label));
    }
    column->addStretch(1);
    holder->Hold(texts);
    outer->addWidget(holder, 1);
    outer->addLayout(ButtonsRight(mirror_, {&form.OKButton}));
    ChainFocus(mirror_.TakeMade());
    SetKeys(&form.OKButton, &form.OKButton);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 90, metrics.lineSpacing() * 28);
}

}  // namespace kestrane
