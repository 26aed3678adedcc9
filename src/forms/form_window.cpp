#include "forms/form_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include "forms/latin1.h"
#include "forms/look/look.h"

namespace kestrane {

FormWindow::FormWindow(Form& form, Hand& hand, WhyDisabledFunction why_disabled, QWidget* owner)
    : QWidget(owner, owner ? Qt::Dialog : Qt::Window),
      mirror_(form, hand, std::move(why_disabled)) {
    setObjectName(QString::fromStdString(form.name()));
    setAttribute(Qt::WA_AlwaysShowToolTips);
    // A dialog has no disabled main window behind it in the model either: it comes first.
    if (owner) setWindowModality(Qt::ApplicationModal);
    mirror_.OnFormChanged([this] { FormChanged(); });
    FormWindow::FormChanged();
}

void FormWindow::SetKeys(Button* on_enter, Button* on_escape) {
    on_enter_ = on_enter;
    on_escape_ = on_escape;
}

void FormWindow::FormChanged() {
    setWindowTitle(ToQt(form().Caption()));
    if (form().Pointer() == Form::kHourglass) {
        setCursor(Qt::WaitCursor);
    } else {
        unsetCursor();
    }
}

// What was added since the last event is not in the size hint before its layout requests ran.
QSize FormWindow::WholeSize() const {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return size().expandedTo(sizeHint());
}

void FormWindow::ShowCentred() {
    mirror_.Refresh();
    const QRect available = screen()->availableGeometry();
    resize(WholeSize().boundedTo(available.size() - QSize(40, 60)));
    const QPoint middle =
        parentWidget() ? parentWidget()->window()->frameGeometry().center() : available.center();
    QPoint corner = middle - rect().center();
    corner.setX(std::max(available.left(), corner.x()));
    corner.setY(std::max(available.top(), corner.y()));
    move(corner);
    show();
    raise();
    activateWindow();
}

// The logic decides what a close means, and it may ask first.
void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    mirror_.Post([this] { mirror_.hand().Close(form()); });
}

// What no control of the form has taken.
void FormWindow::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Shift:
            if (!event->isAutoRepeat() && form().Reachable()) mirror_.hand().Key(Hand::kShiftKey);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            PressEnter();
            break;
        case Qt::Key_Escape:
            if (on_escape_) mirror_.Click(*on_escape_);
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

// Enter presses the button that has the focus, or else the form's own.
void FormWindow::PressEnter() {
    Control* const focused = form().Focused();
    if (focused && focused->kind() == Kind::kButton) {
        mirror_.Click(*focused);
    } else if (on_enter_) {
        mirror_.Click(*on_enter_);
    }
}

void FormWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) mirror_.ForgetColours();
    if (event->type() == QEvent::ThemeChange) FollowSystem();
    QWidget::changeEvent(event);
}

// A key that is a shortcut never comes as a key, but it is announced.
bool FormWindow::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<const QKeyEvent*>(event)->key() != Qt::Key_Control) {
        ctrl_alone_ = false;
    }
    return QWidget::event(event);
}

// The native window sees each key and button first, whatever widget takes it in the end.
void FormWindow::showEvent(QShowEvent* event) {
    windowHandle()->removeEventFilter(this);
    windowHandle()->installEventFilter(this);
    QWidget::showEvent(event);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == windowHandle()) WatchCtrl(*event);
    return QWidget::eventFilter(watched, event);
}

void FormWindow::WatchCtrl(const QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease: {
            const auto& key = static_cast<const QKeyEvent&>(event);
            if (key.isAutoRepeat()) break;
            const bool ctrl = key.key() == Qt::Key_Control;
            if (ctrl && event.type() == QEvent::KeyRelease && ctrl_alone_ && form().Reachable()) {
                mirror_.Post([this] { mirror_.hand().Key(Hand::kCtrlKey); });
            }
            ctrl_alone_ = ctrl && event.type() == QEvent::KeyPress;
            break;
        }
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
        case QEvent::FocusOut:
            ctrl_alone_ = false;
            break;
        default:
            break;
    }
}

}  // namespace kestrane
