#pragma once

// The kinds of control, each with its own properties beside those of Control.

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/timer_service.h"
#include "screen/control.h"
#include "screen/tab_control.h"

namespace kestrane {

// The initial state of a control, by kind.
struct ControlTraits {
    bool enabled = true;
    bool visible = true;
};
struct TextBoxTraits {
    std::string text = {};
    int max_length = 0;         // 0: none
    std::string password = {};  // the character that masks the text
    bool locked = false;
    bool enabled = true;
    bool visible = true;
};
struct CheckBoxTraits {
    bool enabled = true;
    bool visible = true;
    bool checked = false;
};
struct OptionButtonTraits {
    bool enabled = true;
    bool visible = true;
    bool chosen = false;
};
struct ScrollBarTraits {
    int min = 0;
    int max = 255;
    int value = 0;
    int small_change = 1;
    int large_change = 1;
    bool enabled = true;
};
struct TimerTraits {
    int interval = 0;  // milliseconds
    bool enabled = false;
};

// What frames, labels and buttons have in common: a caption as their main property.
class CaptionedControl : public Control {
  public:
    using Traits = ControlTraits;

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  protected:
    CaptionedControl(Container& container, ControlName name, Kind kind, std::string caption,
                     Traits traits);

  private:
    std::string caption_;
};

class Frame : public CaptionedControl, public Container {
  public:
    Frame(Container& container, ControlName name, std::string caption, Traits traits = {})
        : CaptionedControl(container, std::move(name), Kind::kFrame, std::move(caption), traits),
          Container(&container, container.form()) {}

    std::string container_name() const override { return name(); }
    bool Reachable() const override { return Usable(); }
    bool Showing() const override { return Control::Showing(); }
    Form& form() const { return Control::form(); }
};

class Label : public CaptionedControl {
  public:
    Label(Container& container, ControlName name, std::string caption = {}, Traits traits = {})
        : CaptionedControl(container, std::move(name), Kind::kLabel, std::move(caption), traits) {}
};

class Button : public CaptionedControl {
  public:
    Button(Container& container, ControlName name, std::string caption, Traits traits = {})
        : CaptionedControl(container, std::move(name), Kind::kButton, std::move(caption), traits) {}
};

class TextBox : public Control {
  public:
    using Traits = TextBoxTraits;
    TextBox(Container& container, ControlName name, Traits traits = {});

    const std::string& Text() const { return text_; }
    // The program may exceed the maximum length.
    void SetText(std::string text);
    int MaxLength() const { return max_length_; }
    const std::string& PasswordChar() const { return password_; }
    void SetPasswordChar(std::string mask);
    bool Locked() const { return locked_; }

    // The selection in characters from 0; the cursor stands at its start when it is empty.
    int SelStart() const { return sel_start_; }
    int SelLength() const { return sel_length_; }
    void Select(int start, int length);
    // Puts `text` in place of the selection, the cursor behind it.
    void ReplaceSelection(const std::string& text);

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  private:
    void StoreText(std::string text, int cursor);

    std::string text_;
    int max_length_;
    std::string password_;
    bool locked_;
    int sel_start_ = 0;
    int sel_length_ = 0;
};

class CheckBox : public Control {
  public:
    using Traits = CheckBoxTraits;
    CheckBox(Container& container, ControlName name, std::string caption = {}, Traits traits = {});

    const std::string& Caption() const { return caption_; }
    bool Checked() const { return checked_; }
    // A new value runs the click handling.
    void SetChecked(bool checked);

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  private:
    std::string caption_;
    bool checked_ = false;
};

// One of the option buttons of its container: setting one clears the others without an event.
class OptionButton : public Control {
  public:
    using Traits = OptionButtonTraits;
    OptionButton(Container& container, ControlName name, std::string caption = {},
                 Traits traits = {});

    const std::string& Caption() const { return caption_; }
    bool Chosen() const { return chosen_; }
    // Choosing one that was not runs its click handling.
    void SetChosen(bool chosen);

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  private:
    std::string caption_;
    bool chosen_ = false;
};

class ComboBox : public Control {
  public:
    ComboBox(Container& container, ControlName name);

    const std::vector<std::string>& Items() const { return items_; }
    void SetItems(std::vector<std::string> items);
    // -1: none selected.
    int ListIndex() const { return index_; }
    void SetListIndex(int index);

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  private:
    std::vector<std::string> items_;
    int index_ = -1;
};

class ScrollBar : public Control {
  public:
    using Traits = ScrollBarTraits;
    ScrollBar(Container& container, ControlName name, Traits traits);

    int Min() const { return traits_.min; }
    int Max() const { return traits_.max; }
    int SmallChange() const { return traits_.small_change; }
    int LargeChange() const { return traits_.large_change; }
    int ScrollValue() const { return value_; }
    // False, with nothing changed, for a value outside Min to Max.
    bool SetScrollValue(int value);

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  private:
    Traits traits_;
    int value_;
};

// Ticks every `Interval` milliseconds while it is enabled; an interval of 0 never ticks. Setting
// the interval starts the time afresh; enabling an enabled timer does not.
class Timer : public Control {
  public:
    using Traits = TimerTraits;
    Timer(Container& container, ControlName name, Traits traits);

    void SetEnabled(bool enabled) override;
    int Interval() const { return interval_; }
    void SetInterval(int milliseconds);

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  private:
    void Arm();

    int interval_;
    std::unique_ptr<RepeatingTimer> timer_;
};

// A picture out of a fixed set, by its index.
class Light : public Control {
  public:
    Light(Container& container, ControlName name);

    int Picture() const { return picture_; }
    void SetPicture(int picture);

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  private:
    int picture_ = 0;
};

// A drawing without properties of its own.
class Image : public Control {
  public:
    Image(Container& container, ControlName name, bool visible = true);
};

class Shape : public Control {
  public:
    Shape(Container& container, ControlName name, bool visible = true);
};

// Like controls under one name with a sparse index: `chkPriv(110)`.
template <class T>
class ControlArray {
  public:
    // What a member is made of: where it stands, and the arguments of its kind. Each is a value for
    // all of them, or a function of the index.
    template <class Place, class... Args>
    ControlArray(Place&& place, const std::string& name, const std::vector<int>& indices,
                 const Args&... args) {
        for (const int index : indices) {
            members_.push_back(std::make_unique<T>(At(place, index), ControlName(name, index),
                                                   At(args, index)...));
        }
    }

    T& operator()(int index) const {
        // Dense arrays from 0 are found at once.
        const auto place = static_cast<std::size_t>(index);
        if (place < members_.size() && members_[place]->index() == index) return *members_[place];
        const auto found = std::find_if(members_.begin(), members_.end(),
                                        [index](const auto& m) { return m->index() == index; });
        return **found;
    }

    std::size_t size() const { return members_.size(); }

    class Iterator {
      public:
        explicit Iterator(typename std::vector<std::unique_ptr<T>>::const_iterator at) : at_(at) {}
        T& operator*() const { return **at_; }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return at_ != other.at_; }

      private:
        typename std::vector<std::unique_ptr<T>>::const_iterator at_;
    };
    Iterator begin() const { return Iterator(members_.begin()); }
    Iterator end() const { return Iterator(members_.end()); }

  private:
    template <class Value>
    static decltype(auto) At(Value& value, int index) {
        if constexpr (std::is_invocable_v<Value&, int>) {
            return value(index);
        } else {
            return (value);
        }
    }

    std::vector<std::unique_ptr<T>> members_;
};

// The indices first to last, both included.
std::vector<int> Indices(int first, int last);

}  // namespace kestrane
