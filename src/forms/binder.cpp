#include "forms/binder.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "forms/latin1.h"
#include "forms/look/look.h"
#include "forms/mirror.h"

namespace kestrane {
namespace {

bool CausedByUser(Qt::FocusReason reason) {
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
           reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

}  // namespace

Binder::Binder(Mirror& mirror, Control& control, QWidget& widget)
    : QObject(&widget), mirror_(mirror), control_(control), widget_(widget) {
    widget.setObjectName(QString::fromStdString(control.name()));
    Watch(widget);
}

void Binder::Watch(QObject& part) { part.installEventFilter(this); }

bool Binder::EffectivelyEnabled(const Control& control) {
    if (!control.Enabled()) return false;
    for (const Container* at = &control.container(); at != nullptr; at = at->parent()) {
        const auto* frame = dynamic_cast<const Frame*>(at);
        if (frame && !frame->Enabled()) return false;
    }
    return true;
}

bool Binder::Sync() {
    bool moved = SyncVisible();
    const bool enabled = EffectivelyEnabled(control_);
    if (enabled != enabled_) {
        enabled_ = enabled;
        ApplyEnabled(enabled);
        moved = true;
    }
    SyncColours();
    SyncKind();
    return moved;
}

bool Binder::SyncVisible() {
    if (control_.Visible() == visible_) return false;
    visible_ = control_.Visible();
    widget_.setVisible(visible_);
    return true;
}

// Most widgets never have a colour of their own, and then follow the application's palette.
void Binder::SyncColours() {
    const bool plain = !control_.ForeColor() && !control_.BackColor();
    if (colours_known_ && fore_ == control_.ForeColor() && back_ == control_.BackColor()) return;
    if (!colours_known_ && plain && !fore_ && !back_ && !HasOwnPalette()) {
        colours_known_ = true;
        return;
    }
    colours_known_ = true;
    fore_ = control_.ForeColor();
    back_ = control_.BackColor();
    widget_.setPalette(MakePalette(QApplication::palette(&widget_)));
}

QPalette Binder::MakePalette(const QPalette& palette) const {
    return LabelPalette(palette, control_.ForeColor(), control_.BackColor());
}

// A press of the mouse may still become a click, and what it leads to may open a box that would
// swallow the release: so the hand moves only when the button is up again.
bool Binder::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
            UserFocus(static_cast<QFocusEvent&>(*event));
            break;
        case QEvent::MouseButtonPress:
            UserPress();
            break;
        case QEvent::MouseButtonRelease:
            mirror_.MouseReleased();
            break;
        case QEvent::ToolTip: {
            const auto& help = static_cast<QHelpEvent&>(*event);
            const QString tip = TipAt(help.pos());
            if (tip.isEmpty()) break;
            QToolTip::showText(help.globalPos(), tip, &widget_);
            return true;
        }
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void Binder::UserFocus(const QFocusEvent& event) {
    if (mirror_.syncing() || !CausedByUser(event.reason())) return;
    if (event.reason() != Qt::MouseFocusReason) ScrollingPage::Reveal(widget_);
    mirror_.FocusByUser(control_, event.reason() == Qt::MouseFocusReason);
}

// A widget may have the toolkit's focus already, by its window becoming active, with the model
// not told: then no focus event comes. Widgets bear the names of their controls.
void Binder::UserPress() {
    const QWidget* const target = widget_.focusProxy() ? widget_.focusProxy() : &widget_;
    Control* const entered = mirror_.form().Find(target->objectName().toStdString());
    if (entered && entered->TakesFocus() && EffectivelyEnabled(*entered)) {
        mirror_.FocusByUser(*entered, true);
    }
}

QString Binder::TipAt(const QPoint& /*place*/) const {
    QStringList parts{ToQtLines(control_.ToolTip()),
                      QString::fromStdString(mirror_.TipOf(control_)), Reason(enabled_)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral("\n\n"));
}

QString Binder::Reason(bool enabled) const {
    return enabled ? QString() : ToQtLines(mirror_.WhyDisabled(control_));
}

}  // namespace kestrane
