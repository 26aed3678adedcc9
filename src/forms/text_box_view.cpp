#include "forms/text_box_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionFrame>
#include <limits>

#include "forms/latin1.h"
#include "forms/look/look.h"
#include "forms/look/spacing.h"
#include "forms/mirror.h"

namespace kestrane {
namespace {

constexpr int kDefaultColumns = 15;
constexpr int kFirstPrintable = 32;

bool IsTyping(const QKeyEvent& event) {
    if (event.text().isEmpty() || event.text()[0].unicode() < kFirstPrintable ||
        event.text()[0].unicode() == 0x7F) {
        return false;
    }
    // Ctrl and Alt together are the key for a third level.
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return modifiers == Qt::NoModifier || modifiers == (Qt::ControlModifier | Qt::AltModifier);
}

// Keys that move the cursor or the selection and leave the text alone.
bool IsMovement(const QKeyEvent& event) {
    for (const auto key : {QKeySequence::MoveToNextChar, QKeySequence::MoveToPreviousChar,
                           QKeySequence::MoveToStartOfLine, QKeySequence::MoveToEndOfLine,
                           QKeySequence::MoveToStartOfBlock, QKeySequence::MoveToEndOfBlock,
                           QKeySequence::MoveToNextWord, QKeySequence::MoveToPreviousWord,
                           QKeySequence::SelectNextChar, QKeySequence::SelectPreviousChar,
                           QKeySequence::SelectStartOfLine, QKeySequence::SelectEndOfLine,
                           QKeySequence::SelectStartOfBlock, QKeySequence::SelectEndOfBlock,
                           QKeySequence::SelectNextWord, QKeySequence::SelectPreviousWord,
                           QKeySequence::SelectAll, QKeySequence::Copy}) {
        if (event.matches(key)) return true;
    }
    return false;
}

}  // namespace

TextBoxView::TextBoxView(Mirror& mirror, TextBox& box, int columns)
    : mirror_(mirror), box_(box), columns_(columns) {
    if (columns_ == 0) columns_ = box.MaxLength() > 0 ? box.MaxLength() : kDefaultColumns;
    setMaxLength(std::numeric_limits<int>::max() / 4);
    setAcceptDrops(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void TextBoxView::SyncFromModel() {
    const QString text = ToQt(box_.Text());
    if (this->text() != text) setText(text);
    const EchoMode mode = box_.PasswordChar().empty() ? Normal : Password;
    if (echoMode() != mode) setEchoMode(mode);
    if (isReadOnly() != box_.Locked()) setReadOnly(box_.Locked());
    if (window()->focusWidget() != this) {
        if (hasSelectedText() || cursorPosition() != 0) setCursorPosition(0);
        return;
    }
    const int start = box_.SelStart();
    const int length = box_.SelLength();
    if (length > 0) {
        if (selectionStart() != start || selectionLength() != length) setSelection(start, length);
    } else if (hasSelectedText() || cursorPosition() != start) {
        setCursorPosition(start);
    }
}

// Entering by Tab selects all, as the model does for most boxes in a moment.
void TextBoxView::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (mirror_.form().Focused() == &box_) SyncFromModel();
}

void TextBoxView::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool stays_here = event->reason() == Qt::ActiveWindowFocusReason ||
                            event->reason() == Qt::PopupFocusReason ||
                            event->reason() == Qt::MenuBarFocusReason;
    if (!stays_here) setCursorPosition(0);
}

void TextBoxView::PushSelection() {
    box_.Select(hasSelectedText() ? selectionStart() : cursorPosition(), selectionLength());
}

void TextBoxView::UseFixedPitch() { setFont(FixedPitch()); }

// Room for the columns, so that a layout follows the font.
QSize TextBoxView::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int character = std::max(metrics.horizontalAdvance(u'0'), metrics.averageCharWidth());
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QSize contents(character * (columns_ + 1) + 6, metrics.height() + 2);
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this);
}

template <class Edit>
void TextBoxView::WithModel(Edit edit) {
    // Entering may select; a box that is in use already takes over what the view has selected.
    if (mirror_.form().Focused() == &box_) {
        PushSelection();
    } else {
        mirror_.hand().GoTo(box_);
    }
    edit();
    SyncFromModel();
}

// Undo and redo are the window's, over all settings: a box has no history of its own.
bool TextBoxView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) {
            event->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

void TextBoxView::keyPressEvent(QKeyEvent* event) {
    if (IsTyping(*event)) {
        TypeText(event->text());
    } else if (IsMovement(*event)) {
        QLineEdit::keyPressEvent(event);
        PushSelection();
    } else if (!HandleEdit(*event)) {
        event->ignore();
    }
}

bool TextBoxView::HandleEdit(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Paste)) {
        PasteFrom(QGuiApplication::clipboard()->text());
    } else if (event.matches(QKeySequence::Cut)) {
        Cut();
    } else if (event.matches(QKeySequence::Delete)) {
        Delete();
    } else if (event.key() == Qt::Key_Backspace) {
        WithModel([this] { mirror_.hand().Press(box_, Hand::kBackspace); });
    } else {
        return false;
    }
    return true;
}

void TextBoxView::inputMethodEvent(QInputMethodEvent* event) {
    TypeText(event->commitString());
    event->accept();
}

void TextBoxView::TypeText(const QString& text) {
    WithModel([&] {
        for (const QChar character : text) {
            const auto byte = ToByte(character);
            if (!byte) {
                mirror_.Beep();
                continue;
            }
            mirror_.hand().Press(box_, static_cast<unsigned char>(*byte));
        }
    });
}

// Characters without a byte are refused like those of a filter: with a beep.
void TextBoxView::PasteFrom(const QString& text) {
    std::string bytes;
    bool refused = false;
    for (const QChar character : text.left(static_cast<qsizetype>(Hand::kLongestPaste))) {
        const auto byte = ToByte(character);
        byte ? bytes.push_back(*byte) : void(refused = true);
    }
    if (refused) mirror_.Beep();
    WithModel([&] { mirror_.hand().Paste(box_, bytes); });
}

void TextBoxView::Delete() {
    WithModel([this] {
        if (box_.Locked()) return;
        if (box_.SelLength() == 0) box_.Select(box_.SelStart(), 1);
        mirror_.hand().Erase(box_);
    });
}

void TextBoxView::Cut() {
    if (!hasSelectedText() || box_.Locked() || echoMode() != Normal) return;
    copy();
    WithModel([this] { mirror_.hand().Erase(box_); });
}

void TextBoxView::mouseReleaseEvent(QMouseEvent* event) {
    // The middle button pastes the selection where the system knows one.
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
        setCursorPosition(cursorPositionAt(event->pos()));
        PasteFrom(clipboard->text(QClipboard::Selection));
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
    PushSelection();
}

// The usual menu, whose entries go the way of the keys.
void TextBoxView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool can_edit = isEnabled() && !box_.Locked();
    const bool can_copy = hasSelectedText() && echoMode() == Normal;
    menu->addAction(QStringLiteral("Cu&t"), this, [this] { Cut(); })
        ->setEnabled(can_edit && can_copy);
    menu->addAction(QStringLiteral("&Copy"), this, [this] { copy(); })->setEnabled(can_copy);
    menu->addAction(QStringLiteral("&Paste"), this,
                    [this] { PasteFrom(QGuiApplication::clipboard()->text()); })
        ->setEnabled(can_edit);
    menu->addAction(QStringLiteral("&Delete"), this, [this] { Delete(); })
        ->setEnabled(can_edit && hasSelectedText());
    menu->addSeparator();
    menu->addAction(QStringLiteral("Select &All"), this, [this] {
        selectAll();
        PushSelection();
    });
    menu->popup(event->globalPos());
}

QPalette TextBoxBinder::MakePalette(const QPalette& palette) const {
    return BoxPalette(palette, control().ForeColor(), control().BackColor());
}

}  // namespace kestrane
