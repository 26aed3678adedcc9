#pragma once

// The mirror of one form: it makes a bound widget for each control, notes what has changed in the
// model and brings the widgets up to date once an event-loop pass, so that a property that is set
// back and forth in a tick costs nothing. It keeps the focus of model and widgets together.

#include <QPointer>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "forms/binders.h"
#include "forms/text_box_view.h"
#include "forms/widgets.h"

namespace kestrane {

// Why a control is disabled, in a few words; empty if nothing is known.
using WhyDisabledFunction = std::function<std::string(const Control&)>;
// What a control means and takes, in UTF-8; empty if nothing is known.
using TipFunction = std::function<std::string(const Control&)>;

// Makes Tab go through these widgets in this order.
void ChainFocus(const std::vector<QWidget*>& order);

// Widget and binder of a kind of control.
template <class C>
struct ViewOf;
template <class W, class B>
struct ViewPair {
    using Widget = W;
    using Binder = B;
};
template <>
struct ViewOf<Label> : ViewPair<QLabel, LabelBinder> {};
template <>
struct ViewOf<Button> : ViewPair<ButtonView, ButtonBinder> {};
template <>
struct ViewOf<CheckBox> : ViewPair<QCheckBox, CheckBoxBinder> {};
template <>
struct ViewOf<OptionButton> : ViewPair<QRadioButton, OptionButtonBinder> {};
template <>
struct ViewOf<ComboBox> : ViewPair<QComboBox, ComboBoxBinder> {};
template <>
struct ViewOf<ScrollBar> : ViewPair<QScrollBar, ScrollBarBinder> {};
template <>
struct ViewOf<Frame> : ViewPair<FrameView, FrameBinder> {};
template <>
struct ViewOf<Light> : ViewPair<LightView, LightBinder> {};
template <>
struct ViewOf<Image> : ViewPair<FuseView, PlainBinder> {};
template <>
struct ViewOf<Shape> : ViewPair<RowView, ShapeBinder> {};

// The property of a box that is the view's own: the form's focus leaves it the keyboard.
inline constexpr char kKeepsKeyboard[] = "keepsKeyboard";

class Mirror {
  public:
    Mirror(Form& form, Hand& hand, WhyDisabledFunction why_disabled);
    Mirror(const Mirror&) = delete;
    Mirror& operator=(const Mirror&) = delete;

    Form& form() const { return form_; }
    Hand& hand() const { return hand_; }

    // A widget for a control, of the kind in ViewOf. The layout that it is put into gives it a
    // parent.
    template <class C>
    typename ViewOf<C>::Widget* Make(C& control) {
        using View = ViewOf<C>;
        auto widget = std::make_unique<typename View::Widget>();
        auto* binder = new typename View::Binder(*this, control, *widget);
        return Added(std::move(widget), binder);
    }
    // The same with a widget of a kind derived from it.
    template <class W, class C>
    W* Make(C& control) {
        auto widget = std::make_unique<W>();
        auto* binder = new typename ViewOf<C>::Binder(*this, control, *widget);
        return Added(std::move(widget), binder);
    }
    // `columns`: the width in characters; 0: by the maximum length.
    TextBoxView* Make(TextBox& box, int columns = 0);
    // For a text that may be of any length: its beginning, in a fixed-pitch face.
    LongTextView* MakeLong(Label& label);
    // `page_needed` is called before a tab is shown, whoever has selected it.
    void Bind(TabControl& tabs, QTabWidget& widget, std::function<void(int)> page_needed);

    // A click on a label counts as one on the control that it describes.
    void ClickGoesTo(Label& label, Control& target);

    // What has been made since the last call and takes the keyboard, in the order of its making.
    std::vector<QWidget*> TakeMade() { return std::exchange(made_, {}); }

    // Null for a control that has none (yet).
    QWidget* WidgetOf(const Control& control) const;

    void Changed(Control& control);
    void FocusChanged();
    // After a change of the palette.
    void ForgetColours();
    // A label whose colour says whether the box beside it can be written.
    void PairWithLabel(TextBox& box, Label& label);
    // Runs around each click and each choice of the operator, and decides whether it happens.
    void AroundClick(std::function<void(Control&, const std::function<void()>& click)> around) {
        around_click_ = std::move(around);
    }

    // Called when the form itself has changed, in the course of a refresh.
    void OnFormChanged(std::function<void()> handler) { form_changed_ = std::move(handler); }
    // Called after each refresh with widgets changed.
    void OnRefreshed(std::function<void()> handler) { refreshed_ = std::move(handler); }
    // Where the keyboard is while no control of the model has the focus; null for nowhere.
    void SetRestingPlace(QWidget* widget) { resting_place_ = widget; }
    // What a tip says besides the control's own words, and the reason while it is disabled.
    void OnTip(TipFunction tip) { tip_ = std::move(tip); }
    // Brings all that is noted into the widgets now.
    void Refresh();

    // For the binders.
    bool syncing() const { return syncing_ > 0; }
    void FocusByUser(Control& control, bool by_mouse);
    void MouseReleased();
    // Runs `action` as an event of its own, unless the windows are gone by then.
    void Post(std::function<void()> action);
    void Click(Control& control);
    void Choose(Control& control, int value);
    void Beep();
    std::string WhyDisabled(const Control& control) const;
    std::string TipOf(const Control& control) const { return tip_ ? tip_(control) : std::string(); }

  private:
    template <class T>
    T* Added(std::unique_ptr<T> widget, Binder* binder) {
        Adopt(*widget, *binder);
        return widget.release();
    }
    void Adopt(QWidget& widget, Binder& binder);
    void ScheduleRefresh();
    void GoTo(Control& control);
    bool TypingElsewhere() const;
    void SyncFocus();
    void SyncLabels();

    Form& form_;
    Hand& hand_;
    EventLoop& loop_;
    WhyDisabledFunction why_disabled_;
    TipFunction tip_;
    QPointer<QWidget> resting_place_;
    const Control* shown_focus_ = nullptr;
    std::function<void()> form_changed_;
    std::function<void(Control&, const std::function<void()>&)> around_click_;
    std::unordered_map<const TextBox*, const Label*> labels_;
    bool labels_dirty_ = false;
    std::function<void()> refreshed_;
    std::unordered_map<const Control*, Binder*> binders_;
    std::vector<QWidget*> made_;
    std::unordered_set<Binder*> dirty_;
    bool form_dirty_ = false;
    bool focus_dirty_ = false;
    bool scheduled_ = false;
    int syncing_ = 0;
    // Entered by the operator, the model not told yet.
    Control* pending_focus_ = nullptr;
    bool pending_by_mouse_ = false;
    // Waits with the mouse button down.
    std::function<void()> on_release_;
    std::shared_ptr<Mirror*> alive_ = std::make_shared<Mirror*>(this);
};

}  // namespace kestrane
