#pragma once

// A binder ties one control to one widget: it brings the control's properties into the widget and
// passes what the operator does to the hand. There is one for each kind of control, and nothing
// else touches a widget's state. What the kinds share stands here: enabling, visibility, focus by
// mouse and keyboard, tool tips.

#include <QObject>
#include <QWidget>
#include <functional>
#include <string>

#include "screen/hand.h"

namespace kestrane {

class Mirror;

// The property of a widget that is only read: it never shows that its control is disabled.
inline constexpr char kStaysEnabled[] = "staysEnabled";

class Binder : public QObject {
  public:
    Binder(Mirror& mirror, Control& control, QWidget& widget);

    Control& control() const { return control_; }
    QWidget& widget() const { return widget_; }

    // Brings the widget to the state of the control. Returns true if enabling or visibility has
    // changed, after which Qt may have moved the focus.
    bool Sync();
    // The palette has changed: colours are worked out again at the next Sync.
    virtual void ForgetColours() { colours_known_ = false; }

    // Enabled by itself and by every frame around it.
    static bool EffectivelyEnabled(const Control& control);

  protected:
    // Properties of the kind.
    virtual void SyncKind() = 0;
    virtual bool SyncVisible();
    virtual void ApplyEnabled(bool enabled) { widget_.setEnabled(enabled || StaysEnabled()); }
    bool StaysEnabled() const { return widget_.property(kStaysEnabled).toBool(); }
    virtual QPalette MakePalette(const QPalette& palette) const;
    // Whether the widget's palette differs from the application's without a colour of the model.
    virtual bool HasOwnPalette() const { return false; }
    bool eventFilter(QObject* watched, QEvent* event) override;
    // The tool tip at this place of the widget, empty for none.
    virtual QString TipAt(const QPoint& place) const;
    QString Reason(bool enabled) const;

    // A part of the widget whose focus and mouse count as the widget's.
    void Watch(QObject& part);
    void SyncColours();

    Mirror& mirror_;

  private:
    void UserFocus(const QFocusEvent& event);
    void UserPress();

    Control& control_;
    QWidget& widget_;
    bool enabled_ = true;
    bool visible_ = true;
    bool colours_known_ = false;
    std::optional<Colour> fore_;
    std::optional<Colour> back_;
};

}  // namespace kestrane
