#include "forms/mirror.h"

#include <QGuiApplication>
#include <QSignalBlocker>

#include "forms/binders.h"
#include "forms/look/style.h"

namespace kestrane {
namespace {

// In its window, whether that window is the active one or not.
bool HasFocus(const QWidget& widget) {
    const QWidget* const focused = widget.window()->focusWidget();
    return focused && (focused == &widget || focused == widget.focusProxy());
}

bool MouseDown() { return QGuiApplication::mouseButtons() != Qt::NoButton; }

}  // namespace

void ChainFocus(const std::vector<QWidget*>& order) {
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

Mirror::Mirror(Form& form, Hand& hand, WhyDisabledFunction why_disabled)
    : form_(form),
      hand_(hand),
      loop_(form.screen().platform().loop),
      why_disabled_(std::move(why_disabled)) {}

void Mirror::Adopt(QWidget& widget, Binder& binder) {
    binders_[&binder.control()] = &binder;
    ++syncing_;
    binder.Sync();
    --syncing_;
    if (binder.control().TakesFocus()) made_.push_back(&widget);
}

LongTextView* Mirror::MakeLong(Label& label) {
    auto widget = std::make_unique<LongTextView>();
    auto* binder = new LongTextBinder(*this, label, *widget);
    return Added(std::move(widget), binder);
}

TextBoxView* Mirror::Make(TextBox& box, int columns) {
    auto widget = std::make_unique<TextBoxView>(*this, box, columns);
    auto* binder = new TextBoxBinder(*this, box, *widget);
    return Added(std::move(widget), binder);
}

void Mirror::Bind(TabControl& tabs, QTabWidget& widget, std::function<void(int)> page_needed) {
    auto* binder = new TabBinder(*this, tabs, widget, std::move(page_needed));
    binders_[&tabs] = binder;
    ++syncing_;
    binder->Sync();
    --syncing_;
}

void Mirror::ClickGoesTo(Label& label, Control& target) {
    static_cast<LabelBinder*>(binders_.at(&label))->SetClickTarget(target);
}

void Mirror::PairWithLabel(TextBox& box, Label& label) {
    labels_[&box] = &label;
    labels_dirty_ = true;
    ScheduleRefresh();
}

QWidget* Mirror::WidgetOf(const Control& control) const {
    const auto found = binders_.find(&control);
    return found == binders_.end() ? nullptr : &found->second->widget();
}

void Mirror::Changed(Control& control) {
    if (&control == &form_) {
        form_dirty_ = true;
        ScheduleRefresh();
        return;
    }
    const auto found = binders_.find(&control);
    if (found != binders_.end()) {
        dirty_.insert(found->second);
        ScheduleRefresh();
    }
    if (control.kind() != Kind::kFrame) return;
    // What stands in a frame is enabled with it.
    for (const auto& [inner, binder] : binders_) {
        for (const Container* at = &inner->container(); at != nullptr; at = at->parent()) {
            if (at == static_cast<Container*>(static_cast<Frame*>(&control))) dirty_.insert(binder);
        }
    }
    ScheduleRefresh();
}

void Mirror::FocusChanged() {
    focus_dirty_ = true;
    ScheduleRefresh();
}

void Mirror::ForgetColours() {
    for (const auto& [control, binder] : binders_) {
        binder->ForgetColours();
        dirty_.insert(binder);
    }
    ScheduleRefresh();
}

void Mirror::ScheduleRefresh() {
    if (scheduled_) return;
    scheduled_ = true;
    Post([this] { Refresh(); });
}

void Mirror::Refresh() {
    scheduled_ = false;
    ++syncing_;
    // A tab may bring a page to life in here, whose controls come up to date by themselves.
    std::unordered_set<Binder*> dirty;
    dirty.swap(dirty_);
    for (Binder* binder : dirty) focus_dirty_ |= binder->Sync();
    if (std::exchange(form_dirty_, false) && form_changed_) form_changed_();
    if (std::exchange(labels_dirty_, false) || !dirty.empty()) SyncLabels();
    if (!dirty.empty() && refreshed_) refreshed_();
    if (focus_dirty_) SyncFocus();
    --syncing_;
}

// The text beside a box that can be used is never grey. Red has a second sign: a border around the
// box that it is about.
void Mirror::SyncLabels() {
    for (const auto& [box, label] : labels_) {
        QWidget* const view = WidgetOf(*box);
        QWidget* const text = WidgetOf(*label);
        const bool usable = Binder::EffectivelyEnabled(*box) || Binder::EffectivelyEnabled(*label);
        if (text && text->isEnabled() != usable && !text->property(kStaysEnabled).toBool()) {
            text->setEnabled(usable);
        }
        const bool faulty = label->ForeColor() == kRed;
        if (!view || view->property(kFaulty).toBool() == faulty) continue;
        view->setProperty(kFaulty, faulty);
        view->update();
    }
}

bool Mirror::TypingElsewhere() const {
    if (binders_.empty()) return false;
    const QWidget* const focused = binders_.begin()->second->widget().window()->focusWidget();
    return focused && focused->isEnabled() && focused->property(kKeepsKeyboard).toBool();
}

// While the operator is on the way to a control the model's focus waits, and as long as it stays
// where it was it takes the keyboard from no box beside the form.
void Mirror::SyncFocus() {
    if (pending_focus_) return;
    focus_dirty_ = false;
    Control* const wanted = form_.Focused();
    if (std::exchange(shown_focus_, wanted) == wanted && TypingElsewhere()) return;
    QWidget* const widget = wanted ? WidgetOf(*wanted) : nullptr;
    if (widget) {
        if (!HasFocus(*widget)) widget->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (resting_place_) {
        resting_place_->setFocus(Qt::OtherFocusReason);
        return;
    }
    for (const auto& [control, binder] : binders_) {
        if (HasFocus(binder->widget())) binder->widget().window()->focusWidget()->clearFocus();
    }
}

void Mirror::FocusByUser(Control& control, bool by_mouse) {
    pending_focus_ = &control;
    pending_by_mouse_ = by_mouse;
    if (!by_mouse) Post([this, &control] { GoTo(control); });
}

void Mirror::MouseReleased() {
    if (pending_focus_ && pending_by_mouse_) {
        Control& control = *pending_focus_;
        Post([this, &control] { GoTo(control); });
    }
    if (on_release_) Post(std::exchange(on_release_, nullptr));
}

void Mirror::GoTo(Control& control) {
    // A click has told the hand in the meantime.
    if (pending_focus_ != &control) return;
    pending_focus_ = nullptr;
    control.TakesFocus() ? void(hand_.GoTo(control)) : hand_.Leave();
    FocusChanged();
}

void Mirror::Click(Control& control) {
    // The click itself brings the focus along.
    if (control.TakesFocus()) pending_focus_ = nullptr;
    Post([this, &control] {
        const auto click = [this, &control] {
            hand_.Click(control);
            Changed(control);
            FocusChanged();
        };
        around_click_ ? around_click_(control, click) : click();
    });
}

void Mirror::Choose(Control& control, int value) {
    const auto choose = [this, &control, value] {
        pending_focus_ = nullptr;
        const auto work = [&] { hand_.Choose(control, value); };
        around_click_ ? around_click_(control, work) : work();
        Changed(control);
        FocusChanged();
    };
    // Leaving another control may open a box, which a pressed mouse button must not meet.
    if (MouseDown() && form_.Focused() != &control) {
        on_release_ = choose;
    } else {
        Post(choose);
    }
}

void Mirror::Post(std::function<void()> action) {
    loop_.Post([alive = std::weak_ptr(alive_), action = std::move(action)] {
        if (alive.lock()) action();
    });
}

void Mirror::Beep() { form_.screen().platform().sound.Beep(); }

std::string Mirror::WhyDisabled(const Control& control) const {
    return why_disabled_ ? why_disabled_(control) : std::string();
}

}  // namespace kestrane
