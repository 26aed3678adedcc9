#include "forms/script_edit_window.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QToolButton>

#include "forms/latin1.h"
#include "forms/layout.h"
#include "forms/progress.h"
#include "macro/source_words.h"
#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

// As long as decoded texts usually get.
constexpr char kLongText[] = "Turn off outlet  14 after 0.5 seconds, skip if already off";

void AddCell(Mirror& mirror, ListingRow& row, Label& label, const char* widest) {
    QLabel* cell = mirror.Make(label);
    cell->setFont(FixedPitch());
    row.AddCell(cell, QFontMetrics(cell->font()).horizontalAdvance(QLatin1String(widest)));
}

simulation::UnitType TypeOf(const std::string& unit_type) {
    if (unit_type == "CMS") return simulation::UnitType::kCms;
    return unit_type == "636" ? simulation::UnitType::k636 : simulation::UnitType::kSingle;
}

}  // namespace

ScriptEditWindow::ScriptEditWindow(ScriptEditForm& form, MacroEditor& editor, Hand& hand,
                                   const LiveAnswers& answers, WhyDisabledFunction why_disabled,
                                   QWidget* owner)
    : FormWindow(form, hand, std::move(why_disabled), owner), form_(form), editor_(editor) {
    MakeActions();
    insert_heading_ = Caption({});
    insert_heading_->setObjectName(QStringLiteral("insertHeading"));
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(kBetweenFrames, kGap, kBetweenFrames, kGap);
    outer->setSpacing(kGap);
    auto* fading = new Fading(*this, answers);
    line_ = new SourceBox([this](const QString& line) {
        mirror_.Post([this, line] {
            if (PutAtCursor(line, "Not inserted.")) line_->Taken();
            ShowEdits();
        });
    });
    outer->addWidget(BuildUnitPicture(mirror_, form_, {insert_heading_, line_}, *fading));
    outer->addLayout(StatusLine());
    auto* middle = Row();
    middle->setSpacing(kBetweenFrames);
    auto* left = Column();
    left->setSpacing(kGap);
    left->addWidget(Listing());
    left->addLayout(SecondByte());
    left->addStretch(1);
    middle->addLayout(left, 1);
    middle->addWidget(Instructions(), 1);
    outer->addLayout(middle, 1);
    outer->addLayout(Actions());
    ChainFocus(mirror_.TakeMade());
    setTabOrder(mirror_.WidgetOf(form_.chkWait), line_);
    mirror_.SetRestingPlace(scroll_);
    scroll_->setFocus(Qt::OtherFocusReason);
    mirror_.OnTip([this](const Control& control) { return TipOf(control); });
    mirror_.OnRefreshed([this] {
        ShowProgress();
        ShowEdits();
    });
    ShowProgress();
    ShowEdits();
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
    said_ = Caption({});
    said_->setObjectName(QStringLiteral("lastAction"));
    row->addWidget(said_);
    auto* edit = new QToolButton;
    edit->setText(QStringLiteral("Edit"));
    edit->setMenu(menu_);
    edit->setPopupMode(QToolButton::InstantPopup);
    row->addWidget(edit);
    auto* simulate = new QPushButton(QStringLiteral("Simulate"));
    simulate->setAutoDefault(false);
    simulate->setToolTip(QStringLiteral("Runs the program on a simulated unit; nothing is sent"));
    QObject::connect(simulate, &QPushButton::clicked, this, [this] { Simulate(); });
    row->addWidget(simulate);
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
        auto* view = mirror_.Make<ListingRow>(form_.shpOutline(i));
        rows_[static_cast<std::size_t>(i)] = view;
        for (Label* label : {&form_.lblMem(i), &form_.lblMem1(i), &form_.lblMem2(i)}) {
            AddCell(mirror_, *view, *label, "00");
            mirror_.ClickGoesTo(*label, form_.lblCommand(i));
        }
        AddCell(mirror_, *view, form_.lblCommand(i), kLongText);
        for (QWidget* cell : view->findChildren<QWidget*>()) {
            cell->setFocusPolicy(Qt::ClickFocus);
            cell->setFocusProxy(scroll_);
        }
        rows->addWidget(view);
    }
    row->addLayout(rows, 1);
    row->addWidget(scroll_);
    listing->installEventFilter(this);
    listing->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(listing, &QWidget::customContextMenuRequested, this,
                     [this, listing](const QPoint& at) { menu_->popup(listing->mapToGlobal(at)); });
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

void ScriptEditWindow::hideEvent(QHideEvent* event) {
    if (simulation_) simulation_->hide();
    FormWindow::hideEvent(event);
}

// Boxes with the keyboard keep these keys for their own texts.
QAction* ScriptEditWindow::AddAction(const char* text, const QKeySequence& keys,
                                     void (ScriptEditWindow::*act)()) {
    QAction* action = menu_->addAction(QLatin1String(text));
    action->setShortcut(keys);
    addAction(action);
    QObject::connect(action, &QAction::triggered, this, [this, act] {
        mirror_.Post([this, act] {
            (this->*act)();
            ShowEdits();
        });
    });
    return action;
}

void ScriptEditWindow::MakeActions() {
    menu_ = new QMenu(this);
    undo_ = AddAction("Undo", QKeySequence(Qt::CTRL | Qt::Key_Z), &ScriptEditWindow::Undo);
    redo_ =
        AddAction("Redo", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), &ScriptEditWindow::Redo);
    menu_->addSeparator();
    AddAction("Copy lines as text", QKeySequence(Qt::CTRL | Qt::Key_C), &ScriptEditWindow::Copy);
    AddAction("Paste lines at the cursor", QKeySequence(Qt::CTRL | Qt::Key_V),
              &ScriptEditWindow::Paste);
    AddAction("Type lines at the cursor", QKeySequence(Qt::CTRL | Qt::Key_L),
              &ScriptEditWindow::TypeLines);
    menu_->addSeparator();
    AddAction("Upload", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_U), &ScriptEditWindow::Upload);
    AddAction("Load file", QKeySequence(Qt::CTRL | Qt::Key_O), &ScriptEditWindow::LoadFile);
    AddAction("Save file", QKeySequence(Qt::CTRL | Qt::Key_S), &ScriptEditWindow::SaveFile);
    menu_->addSeparator();
    AddAction("Simulate", QKeySequence(Qt::Key_F6), &ScriptEditWindow::Simulate);
}

void ScriptEditWindow::Undo() { editor_.edits().Undo(); }
void ScriptEditWindow::Redo() { editor_.edits().Redo(); }

// From the cursor to where Shift began to be held, else the cursor's line alone.
void ScriptEditWindow::Copy() {
    const auto [first, last] = std::minmax({anchor_, Cursor()});
    const std::string lines =
        editor_.edits().Lines(static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(last));
    QGuiApplication::clipboard()->setText(QString::fromStdString(lines));
}

bool ScriptEditWindow::PutAtCursor(const QString& source, const char* failure) {
    const auto fault = editor_.edits().Paste(source.toStdString());
    if (!fault) return true;
    form_.screen().platform().boxes.Show(failure, NearestByteText(*fault), {BoxButton::kOk});
    return false;
}

void ScriptEditWindow::Paste() { PutAtCursor(QGuiApplication::clipboard()->text(), "Not pasted."); }
void ScriptEditWindow::TypeLines() { line_->setFocus(Qt::ShortcutFocusReason); }
void ScriptEditWindow::Upload() { mirror_.hand().Click(form_.cmdUpload); }
void ScriptEditWindow::LoadFile() { mirror_.hand().Click(form_.cmdLoadFile); }
void ScriptEditWindow::SaveFile() { mirror_.hand().Click(form_.cmdSaveFile); }

void ScriptEditWindow::Simulate() {
    if (!simulation_) {
        simulation_ = new SimulationPane({[this] { return editor_.state().image; },
                                          [this] { return TypeOf(editor_.unit_type()); },
                                          [this](std::optional<std::uint8_t> line) {
                                              running_ = line;
                                              for (int row = 0; row < ScriptEditForm::kRows; ++row)
                                                  ShowRow(row);
                                          }},
                                         this);
    } else if (!simulation_->isVisible()) {
        simulation_->Restart();
    }
    simulation_->show();
    simulation_->raise();
}

void ScriptEditWindow::ShowEdits() {
    if (Cursor() != last_cursor_) {
        last_cursor_ = Cursor();
        if (!(QGuiApplication::keyboardModifiers() & Qt::ShiftModifier)) anchor_ = last_cursor_;
    }
    ProgramEdits& edits = editor_.edits();
    edits.Look();
    if (checked_ != edits.history().Now()) FindFindings();
    insert_heading_->setText(
        QStringLiteral("Insert at %1:").arg(ToQt(HexByte(editor_.state().MemPointer))));
    line_->setEnabled(form_.cmdInsertCommand(0).Usable());
    for (int row = 0; row < ScriptEditForm::kRows; ++row) ShowRow(row);
    const auto& state = editor_.state();
    QStringList said{QString::fromStdString(state.file_name),
                     QString::fromStdString(state.last_action)};
    said.removeAll(QString());
    said_->setText(said.join(QStringLiteral(" \u00B7 ")));
    const auto show = [](QAction* action, const char* verb, const std::string& name) {
        action->setEnabled(!name.empty());
        action->setText(
            QLatin1String(verb) +
            (name.empty() ? QString() : QStringLiteral(": ") + QString::fromStdString(name)));
    };
    show(undo_, "Undo", edits.history().UndoName());
    show(redo_, "Redo", edits.history().RedoName());
}

// What is wrong with a trigger shows on the line that it goes to.
std::optional<std::uint8_t> ScriptEditWindow::TargetOf(int trigger) const {
    return HexPair(checked_->triggers[static_cast<std::size_t>(trigger)].address);
}

void ScriptEditWindow::FindFindings() {
    checked_ = editor_.edits().history().Now();
    findings_.clear();
    for (Finding& finding : editor_.edits().Findings()) {
        const auto address = finding.trigger ? TargetOf(*finding.trigger) : finding.address;
        if (address) findings_[*address].push_back(std::move(finding));
    }
}

void ScriptEditWindow::ShowRow(int row) {
    ListingRow* const view = rows_[static_cast<std::size_t>(row)];
    if (!view) return;
    const EditorState& state = editor_.state();
    const auto address = static_cast<std::uint8_t>(state.ListTop + row);
    const auto [first, last] = std::minmax({anchor_, Cursor()});
    RowMarks marks;
    marks.insert = address == state.MemPointer;
    marks.differs = editor_.unit_program().Differs(state.image, address);
    marks.runs = running_ == address;
    marks.selected = first != last && address >= first && address <= last;
    if (const auto found = findings_.find(address); found != findings_.end()) {
        marks.finding = RowMarks::Finding::kWarning;
        for (const Finding& finding : found->second) {
            if (!finding.IsWarning()) marks.finding = RowMarks::Finding::kError;
        }
    }
    marks.names = QString::fromStdString(editor_.edits().NamesAt(address));
    view->SetMarks(marks);
}

}  // namespace kestrane
