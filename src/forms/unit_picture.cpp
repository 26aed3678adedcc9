#include "forms/layout.h"
#include "forms/script_edit_window.h"

namespace kestrane {
namespace {

constexpr int kOutletsInBlock = 7;
constexpr int kNarrowPadding = 8;
constexpr int kNameWidth = 8;  // in characters, of the inlets

enum PictureRow { kNumber, kLight, kFuse, kBlock, kUpper, kLower, kHeading, kOn, kOff };

// The inlets stand apart from the outlets.
int ColumnOf(int position) {
    return position < ScriptEditForm::kFirstInlet ? position : position + 1;
}

void AddPosition(Mirror& mirror, QGridLayout* grid, ScriptEditForm& form, int position,
                 Fading& fading) {
    const int column = ColumnOf(position);
    grid->addWidget(mirror.Make(form.lblFuseNo(position)), kNumber, column, Qt::AlignCenter);
    LightView* light = KeepPlace(mirror.Make(form.pbLED(position)));
    fading.Add(light);
    grid->addWidget(light, kLight, column, Qt::AlignCenter);
    grid->addWidget(KeepPlace(mirror.Make(form.imgFuse(position))), kFuse, column, Qt::AlignCenter);
    for (const bool upper : {true, false}) {
        const int first = upper ? ScriptEditForm::kUpperNames : ScriptEditForm::kLowerNames;
        QLabel* name = mirror.Make<NameLabel>(form.lblDesi(first + position));
        name->setAlignment(Qt::AlignCenter);
        grid->addWidget(name, upper ? kUpper : kLower, column);
    }
    if (position >= ScriptEditForm::kOutlets) return;
    for (Button* button : {&form.cmdOn(position), &form.cmdOff(position)}) {
        ButtonView* view = mirror.Make(*button);
        view->ReserveFor({QStringLiteral("OFF 14")});
        view->SetPadding(kNarrowPadding);
        grid->addWidget(view, button == &form.cmdOn(position) ? kOn : kOff, column);
    }
}

void AddBar(Mirror& mirror, QGridLayout* grid, Image& image, int first, int last) {
    FuseView* bar = KeepPlace(mirror.Make(image));
    bar->MakeBar();
    const int column = ColumnOf(first);
    grid->addWidget(bar, kBlock, column, 1, ColumnOf(last) - column + 1);
}

}  // namespace

QWidget* BuildUnitPicture(Mirror& mirror, ScriptEditForm& form, InsertHeading heading,
                          Fading& fading) {
    auto* picture = new QFrame;
    picture->setFrameShape(QFrame::StyledPanel);
    auto* outer = new QVBoxLayout(picture);
    outer->setContentsMargins(kMargin, kSmallGap, kMargin, kSmallGap);
    outer->setSpacing(kSmallGap);
    auto* titles = Row();
    for (Label* label : {&form.lblTitle, &form.lblTitle2}) {
        QLabel* title = mirror.Make(*label);
        QFont bold = title->font();
        bold.setBold(true);
        title->setFont(bold);
        titles->addWidget(title);
        titles->addSpacing(2 * kGap);
    }
    titles->addStretch(1);
    QLabel* last_answer = Caption({});
    fading.SayIn(last_answer);
    titles->addWidget(last_answer);
    outer->addLayout(titles);

    auto* grid = new QGridLayout;
    const int inlet_width = picture->fontMetrics().averageCharWidth() * kNameWidth;
    grid->setHorizontalSpacing(3);
    grid->setVerticalSpacing(2);
    for (int i = 0; i < ScriptEditForm::kPositions; ++i) AddPosition(mirror, grid, form, i, fading);
    AddBar(mirror, grid, form.imgFuse7Block(0), 0, kOutletsInBlock - 1);
    AddBar(mirror, grid, form.imgFuse7Block(1), kOutletsInBlock, ScriptEditForm::kOutlets - 1);
    AddBar(mirror, grid, form.imgFuse2Block, ScriptEditForm::kFirstInlet,
           ScriptEditForm::kSecondInlet);
    auto* head = Row();
    head->addWidget(heading.text);
    head->addSpacing(kGap);
    head->addWidget(mirror.Make(form.chkWait));
    head->addSpacing(kGap);
    head->addWidget(heading.line, 1);
    grid->addLayout(head, kHeading, 0, 1, ScriptEditForm::kOutlets);
    for (int i = 0; i < ScriptEditForm::kOutlets; ++i) grid->setColumnStretch(i, 1);
    grid->setColumnMinimumWidth(ScriptEditForm::kFirstInlet, kGap);
    for (const int inlet : {ScriptEditForm::kFirstInlet, ScriptEditForm::kSecondInlet}) {
        grid->setColumnMinimumWidth(ColumnOf(inlet), inlet_width);
    }
    outer->addLayout(grid);
    return picture;
}

}  // namespace kestrane
