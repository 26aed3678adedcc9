#include "forms/script_edit_window.h"

#include <QApplication>
#include <QKeyEvent>

#include "forms/layout.h"
#include "forms/progress.h"

namespace kestrane {
namespace {

// As long as decoded texts usually get.
constexpr char kLongText[] = "Turn off outlet 14 after fixed delay of 6300.0 sec";

QLabel* Cell(Mirror& mirror, Label& label, const char* widest) {
    QLabel* cell = mirror.Make(label);
    cell->setFont(FixedPitch());
    ReserveWidth(cell, widest);
    return cell;
}

}  // namespace

ScriptEditWindow::ScriptEditWindow(ScriptEditForm& form, Hand& hand,
                                   WhyDisabledFunction why_disabled, QWidget* owner)
    : FormWindow(form, hand, std::move(why_disabled), owner), form_(form) {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(kBetweenFrames, kGap, kBetweenFrames, kGap);
    outer->setSpacing(kGap);
    outer->addWidget(BuildUnitPicture(mirror_, form_));
    outer->addLayout(StatusLine());
    auto* middle = Row();
    middle->setSpacing(kBetweenFrames);
    auto* left = Column();
    left->setSpacing(kGap);
    left->addWidget(Listing());
    left->addLayout(SecondByte());
    left->addStretch(1);
    middle->addLayout(left);
    middle->addWidget(Instructions(), 1);
    outer->addLayout(middle, 1);
    outer->addLayout(Actions());
    ChainFocus(mirror_.TakeMade());
    mirror_.SetRestingPlace(scroll_);
    scroll_->setFocus(Qt::OtherFocusReason);
    mirror_.OnRefreshed([this] { ShowProgress(); });
    ShowProgress();
}

QSize ScriptEditWindow::sizeHint() const {
    constexpr QSize kUsual(1180, kSmallestHeight - 20);
    return FormWindow::minimumSizeHint().expandedTo(kUsual);
}

// What inserts an instruction scrolls by itself, so that the listing and the actions stay.
QWidget* ScriptEditWindow::Instructions() {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap);
    column->addWidget(BuildInstructionButtons(mirror_, form_));
    column->addWidget(BuildOutletMasks(mirror_, form_));
    column->addStretch(1);
    auto* holder = new ScrollingPage;
    holder->Hold(content);
    return holder;
}

QLayout* ScriptEditWindow::StatusLine() {
    auto* row = Row();
    QLabel* status = mirror_.Make(form_.lblTopStatus);
    ReserveWidth(status, "Reading channel names complete ............");
    progress_ = KeepPlace(new QProgressBar);
    progress_->setTextVisible(false);
    progress_->setMaximumHeight(fontMetrics().height());
    row->addWidget(status);
    row->addWidget(progress_, 1);
    return row;
}

// The keyboard moves the cursor through the scroll bar, which a click on a row takes along.
QWidget* ScriptEditWindow::Listing() {
    auto* listing = new QFrame;
    listing->setFrameShape(QFrame::StyledPanel);
    listing->setAutoFillBackground(true);
    listing->setBackgroundRole(QPalette::Base);
    auto* row = new QHBoxLayout(listing);
    row->setContentsMargins(4, 4, 2, 4);
    row->setSpacing(2);
    scroll_ = mirror_.Make(form_.scrListScroll);
    scroll_->setFocusPolicy(Qt::WheelFocus);
    scroll_->setAccessibleName(QStringLiteral("Macro listing"));
    auto* rows = Column();
    rows->setSpacing(0);
    for (int i = 0; i < ScriptEditForm::kRows; ++i) {
        RowView* view = mirror_.Make(form_.shpOutline(i));
        auto* cells = new QHBoxLayout(view);
        cells->setContentsMargins(kGap, 1, kGap, 1);
        cells->setSpacing(kGap);
        for (Label* label : {&form_.lblMem(i), &form_.lblMem1(i), &form_.lblMem2(i)}) {
            QLabel* cell = Cell(mirror_, *label, "00");
            cell->setFixedWidth(cell->minimumWidth());
            cells->addWidget(cell);
            mirror_.ClickGoesTo(*label, form_.lblCommand(i));
        }
        QLabel* text = Cell(mirror_, form_.lblCommand(i), kLongText);
        text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        cells->addWidget(text, 1);
        for (QWidget* cell : view->findChildren<QWidget*>()) {
            cell->setFocusPolicy(Qt::ClickFocus);
            cell->setFocusProxy(scroll_);
        }
        rows->addWidget(view);
    }
    row->addLayout(rows, 1);
    row->addWidget(scroll_);
    listing->installEventFilter(this);
    return listing;
}

QLayout* ScriptEditWindow::SecondByte() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kSmallGap);
    TextBoxView* hex =
        AddField(mirror_, grid, 0, 0, form_.lblSecondByteHex, form_.txtSecondByteHex, 6);
    hex->UseFixedPitch();
    grid->addWidget(mirror_.Make(form_.cmdSecondByteHexOK), 0, 3);
    TextBoxView* time =
        AddField(mirror_, grid, 1, 0, form_.lblSecondByteTime, form_.txtSecondByteTime, 6);
    time->UseFixedPitch();
    grid->addWidget(mirror_.Make(form_.lblSecs), 1, 2);
    grid->addWidget(mirror_.Make(form_.cmdSecondByteTimeOK), 1, 3);
    grid->addWidget(mirror_.Make(form_.chkAutoIncrement), 0, 4, 1, 2);
    QHBoxLayout* running = Row();
    running->addWidget(mirror_.Make(form_.chkTrace));
    running->addSpacing(kGap);
    running->addWidget(mirror_.Make(form_.cmdGetStatus));
    running->addStretch(1);
    TextBoxView* go_to = mirror_.Make(form_.txtGoTo, 4);
    go_to->setAccessibleName(QStringLiteral("Go to address"));
    go_to->UseFixedPitch();
    running->addWidget(go_to);
    running->addWidget(mirror_.Make(form_.cmdGoTo));
    grid->addLayout(running, 2, 0, 1, 6);
    grid->setColumnStretch(5, 1);
    return grid;
}

QLayout* ScriptEditWindow::Actions() {
    QHBoxLayout* row =
        ButtonRow(mirror_, {&form_.cmdDownload, &form_.cmdUpload, &form_.cmdLoadFile,
                            &form_.cmdSaveFile, &form_.cmdClearMem, &form_.cmdBasicSettings});
    row->addWidget(mirror_.Make(form_.cmdExit));
    return row;
}

void ScriptEditWindow::ShowProgress() {
    const auto progress = ParseProgress(form_.lblTopStatus.Caption());
    if (progress) {
        progress_->setRange(0, progress->total);
        progress_->setValue(progress->done);
    }
    progress_->setVisible(progress.has_value());
}

// Enter in the listing clicks the row with the cursor.
void ScriptEditWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || form_.Focused() != &form_.scrListScroll) {
        FormWindow::keyPressEvent(event);
        return;
    }
    for (int i = 0; i < ScriptEditForm::kRows; ++i) {
        if (form_.shpOutline(i).Visible()) mirror_.Click(form_.lblCommand(i));
    }
}

bool ScriptEditWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        QApplication::sendEvent(scroll_, event);
        return true;
    }
    return FormWindow::eventFilter(watched, event);
}

}  // namespace kestrane
