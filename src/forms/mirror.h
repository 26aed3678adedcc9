#pragma once

// The mirror of one form: it makes a bound widget for each control, notes what has changed in the
// model and brings the widgets up to date once an event-loop pass, so that a property that is set
// back and forth in a tick costs nothing. It keeps the focus of model and widgets together.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "forms/binder.h"
#include "forms/text_box_view.h"
#include "forms/widgets.h"

namespace kestrane {

// Why a control is disabled, in a few words; empty if nothing is known.
using WhyDisabledFunction = std::function<std::string(const Control&)>;

// Makes Tab go through these widgets in this order.
void ChainFocus(const std::vector<QWidget*>& order);

class Mirror {
  public:
    Mirror(Form& form, Hand& hand, WhyDisabledFunction why_disabled);
    Mirror(const Mirror&) = delete;
    Mirror& operator=(const Mirror&) = delete;

    Form& form() const { return form_; }
    Hand& hand() const { return hand_; }

    // A widget for a control. The layout that it is put into gives it a parent.
    QLabel* Make(Label& label);
    // For a text that may be of any length: its beginning, in a fixed-pitch face.
    LongTextView* MakeLong(Label& label);
    // `columns`: the width in characters; 0: by the maximum length.
    TextBoxView* Make(TextBox& box, int columns = 0);
    ButtonView* Make(Button& button);
    QCheckBox* Make(CheckBox& box);
    QRadioButton* Make(OptionButton& option);
    QComboBox* Make(ComboBox& box);
    QScrollBar* Make(ScrollBar& bar);
    FrameView* Make(Frame& frame);
    LightView* Make(Light& light);
    FuseView* Make(Image& image);
    RowView* Make(Shape& shape);
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
    // Called when the form itself has changed, in the course of a refresh.
    void OnFormChanged(std::function<void()> handler) { form_changed_ = std::move(handler); }
    // Called after each refresh with widgets changed.
    void OnRefreshed(std::function<void()> handler) { refreshed_ = std::move(handler); }
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

  private:
    template <class T>
    T* Added(std::unique_ptr<T> widget, Binder* binder);
    void ScheduleRefresh();
    void GoTo(Control& control);
    void SyncFocus();

    Form& form_;
    Hand& hand_;
    EventLoop& loop_;
    WhyDisabledFunction why_disabled_;
    std::function<void()> form_changed_;
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
