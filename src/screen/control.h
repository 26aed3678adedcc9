#pragma once

// The base of every control: a small object with the properties and events of its kind. The one
// thing to know: setting a property to a new value tells the listeners and runs the change or
// click handling, whoever sets it; setting it to the value that it has runs nothing.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace kestrane {

class Form;
class Screen;
class Control;

// Colours are numbers with red in the low byte.
using Colour = std::uint32_t;
inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kRed = 0x0000FF;
inline constexpr Colour kGreen = 0x00FF00;
inline constexpr Colour kOrange = 33023;
inline constexpr Colour kButtonFace = 0x8000000F;

// A name of the screen: `txtUnitName`, or an array's name with the index of one member.
struct ControlName {
    ControlName(const char* base_name) : base(base_name) {}  // NOLINT: names are literals
    ControlName(std::string base_name, int array_index)
        : base(std::move(base_name)), index(array_index) {}

    std::string base;
    std::optional<int> index;
};

enum class Kind {
    kForm,
    kFrame,
    kLabel,
    kTextBox,
    kButton,
    kCheckBox,
    kOptionButton,
    kComboBox,
    kScrollBar,
    kTabControl,
    kTimer,
    kLight,
    kImage,
    kShape,
};

// "text box", "check box" and so on.
const char* KindName(Kind kind);

// What holds controls: a form, a frame or the page of a tab.
class Container {
  public:
    Container(Container* parent, Form& form) : parent_(parent), form_(form) {}
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    virtual ~Container() = default;

    // Empty for a page.
    virtual std::string container_name() const = 0;

    // Whether a hand can reach what stands in here: enabled, visible, on the selected tab and on
    // the active form, up to the root.
    virtual bool Reachable() const = 0;

    // The same without the enabling and the active form: whether it would be seen.
    virtual bool Showing() const = 0;

    Container* parent() const { return parent_; }
    Form& form() const { return form_; }

  private:
    Container* parent_;
    Form& form_;
};

enum class Property {
    kText,
    kCaption,
    kValue,
    kIndex,
    kPicture,
    kEnabled,
    kVisible,
    kForeColor,
    kBackColor,
    kToolTip,
    kMaxLength,
    kPassword,
    kLocked,
    kItems,
    kRange,
    kTabs,
    kInterval,
    kPointer,
    kHeight,
    kSelection,
};

// A tab as a property tells of it.
struct TabState {
    std::string caption;
    bool enabled = true;
    bool visible = true;
};

// A property's value as a script sees it; nothing where a colour was never set.
using Value = std::variant<std::monostate, bool, long, std::string, std::vector<std::string>,
                           std::vector<TabState>>;
using PropertyList = std::vector<std::pair<std::string, Value>>;

class Control {
  public:
    Control(Container& container, ControlName name, Kind kind);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    Kind kind() const { return kind_; }
    // `chkPriv(110)`; `base_name` is `chkPriv`.
    const std::string& name() const { return name_; }
    const std::string& base_name() const { return base_name_; }
    int index() const { return index_.value_or(0); }
    Container& container() const { return container_; }
    Form& form() const { return container_.form(); }

    bool Enabled() const { return enabled_; }
    virtual void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    virtual void SetVisible(bool visible);
    std::optional<Colour> ForeColor() const { return fore_; }
    void SetForeColor(Colour colour);
    std::optional<Colour> BackColor() const { return back_; }
    void SetBackColor(Colour colour);
    const std::string& ToolTip() const { return tool_tip_; }
    void SetToolTip(std::string text);

    // Itself and all that contain it enabled and visible, on the selected tab, its form the
    // active one. Whether the tab itself can be selected plays no part.
    virtual bool Usable() const;
    // Seen on the form, usable or not.
    virtual bool Showing() const { return visible_ && container_.Showing(); }
    // Whether the kind takes the focus at all.
    bool TakesFocus() const;

    // Every property by its name on the console, the main one first.
    virtual PropertyList Properties() const;
    // Sets a property as the program would; an empty name means the main one. Returns why not.
    virtual std::optional<std::string> Assign(const std::string& property, const Value& value);

    // The events. A key press handler may replace the code: 0 and 1 type nothing.
    std::function<void()> on_change;
    std::function<void()> on_click;
    std::function<void(int& code)> on_key_press;
    std::function<void()> on_got_focus;
    std::function<void()> on_lost_focus;
    std::function<void()> on_validate;
    std::function<void()> on_timer;

  protected:
    // Tells the listeners of the screen.
    void Notify(Property property);
    static void Run(const std::function<void()>& handler) {
        if (handler) handler();
    }
    // The common part of Assign, for the properties that every kind has.
    std::optional<std::string> AssignCommon(const std::string& property, const Value& value);

  private:
    Container& container_;
    Kind kind_;
    std::string base_name_;
    std::optional<int> index_;
    std::string name_;
    bool enabled_ = true;
    bool visible_ = true;
    std::optional<Colour> fore_;
    std::optional<Colour> back_;
    std::string tool_tip_;
};

}  // namespace kestrane
