#pragma once

// One binder for each kind of control but text boxes.

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>

#include "forms/binder.h"
#include "forms/widgets.h"

namespace kestrane {

class LabelBinder : public Binder {
  public:
    LabelBinder(Mirror& mirror, Label& label, QLabel& view);

    void SetClickTarget(Control& target) { click_target_ = &target; }

  protected:
    void SyncKind() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Label& label_;
    QLabel& view_;
    Control* click_target_ = nullptr;
    std::string shown_;
};

class LongTextBinder : public Binder {
  public:
    LongTextBinder(Mirror& mirror, Label& label, LongTextView& view);

  protected:
    void SyncKind() override;

  private:
    Label& label_;
    LongTextView& view_;
};

class ButtonBinder : public Binder {
  public:
    ButtonBinder(Mirror& mirror, Button& button, QPushButton& view);

  protected:
    void SyncKind() override;
    QPalette MakePalette(const QPalette& palette) const override;
    bool HasOwnPalette() const override;

  private:
    Button& button_;
    QPushButton& view_;
};

class CheckBoxBinder : public Binder {
  public:
    CheckBoxBinder(Mirror& mirror, CheckBox& box, QCheckBox& view);

  protected:
    void SyncKind() override;

  private:
    CheckBox& box_;
    QCheckBox& view_;
};

// Which of a group is chosen is the model's affair: the widgets don't exclude each other.
// The options of one choice are one stop of the Tab key; arrows choose among them.
class OptionButtonBinder : public Binder {
  public:
    OptionButtonBinder(Mirror& mirror, OptionButton& option, QRadioButton& view);

  protected:
    void SyncKind() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::vector<OptionButton*> Options() const;
    void ChooseNext(int step);

    OptionButton& option_;
    QRadioButton& view_;
};

class ComboBoxBinder : public Binder {
  public:
    ComboBoxBinder(Mirror& mirror, ComboBox& box, QComboBox& view);

  protected:
    void SyncKind() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ComboBox& box_;
    QComboBox& view_;
    std::vector<std::string> items_;
};

// The wheel moves a bar only while it has the focus, or where its policy is Qt::WheelFocus.
class ScrollBarBinder : public Binder {
  public:
    ScrollBarBinder(Mirror& mirror, ScrollBar& bar, QScrollBar& view);

  protected:
    void SyncKind() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ScrollBar& bar_;
    QScrollBar& view_;
};

class TabBinder : public Binder {
  public:
    TabBinder(Mirror& mirror, TabControl& tabs, QTabWidget& view,
              std::function<void(int)> page_needed);

  protected:
    void SyncKind() override;
    QString TipAt(const QPoint& place) const override;

  private:
    TabControl& tabs_;
    QTabWidget& view_;
    std::function<void(int)> page_needed_;
};

class FrameBinder : public Binder {
  public:
    FrameBinder(Mirror& mirror, Frame& frame, FrameView& view);

  protected:
    void SyncKind() override;
    // What stands in a frame is enabled piece by piece: disabling the view would also reach what
    // is only drawn in there.
    void ApplyEnabled(bool enabled) override { view_.SetTitleEnabled(enabled || StaysEnabled()); }
    // Colours are the title's, not those of what stands in the frame.
    QPalette MakePalette(const QPalette& palette) const override { return palette; }

  private:
    Frame& frame_;
    FrameView& view_;
};

class LightBinder : public Binder {
  public:
    LightBinder(Mirror& mirror, Light& light, LightView& view);

  protected:
    void SyncKind() override { view_.SetPicture(light_.Picture()); }

  private:
    Light& light_;
    LightView& view_;
};

// The shape marks a row: shown means marked, and the row itself always stays.
class ShapeBinder : public Binder {
  public:
    ShapeBinder(Mirror& mirror, Shape& shape, RowView& view);

  protected:
    void SyncKind() override {}
    bool SyncVisible() override;

  private:
    RowView& view_;
};

// A picture that is there or not.
class PlainBinder : public Binder {
  public:
    using Binder::Binder;

  protected:
    void SyncKind() override {}
};

}  // namespace kestrane
