#pragma once

// The widgets that Qt has not ready-made: a titled frame, a light, a fuse, a row of the listing, a
// view of long texts.

#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWidget>
#include <algorithm>
#include <string>
#include <vector>

namespace kestrane {

// A title above a rounded box; what stands in it goes into body().
class FrameView : public QWidget {
  public:
    FrameView();

    QWidget* body() const { return body_; }
    void SetTitle(const QString& title);
    void SetTitleEnabled(bool enabled) { title_->setEnabled(enabled); }
    void SetTitleColours(const QPalette& palette);
    QLabel* title() const { return title_; }

  private:
    QLabel* title_;
    QFrame* body_;
};

// A push button with air beside its caption.
class ButtonView : public QPushButton {
  public:
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    // At least as wide as with these captions, so that a change among them moves nothing.
    void ReserveFor(std::vector<QString> captions);
    // Air beside the caption, both sides together.
    void SetPadding(int padding);

  private:
    int padding_ = 20;
    std::vector<QString> reserved_;
};

// The one thing to do where it stands.
class PrimaryButton : public ButtonView {
  public:
    PrimaryButton();
};

// A light in grey (0), red, green or orange (3).
class LightView : public QWidget {
  public:
    LightView();

    void SetPicture(int picture);
    // Fades what is no longer known to be so.
    void SetFaded(bool faded);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int picture_ = 0;
    bool faded_ = false;
};

// The symbol of a fuse, or, as a bar, the bracket under a block of them.
class FuseView : public QWidget {
  public:
    FuseView();

    void MakeBar();
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool bar_ = false;
};

// A row that can be marked as the one with the cursor.
class RowView : public QWidget {
  public:
    RowView() = default;

    void SetMarked(bool marked);
    bool marked() const { return marked_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool marked_ = false;
};

// Scrolls what does not fit, up and down only, and asks for room for all of it. Nothing but the
// operator moves it: the wheel, the bar, and the Tab key, which reveals the control it leads to.
class ScrollingPage : public QScrollArea {
  public:
    ScrollingPage();

    void Hold(QWidget* page);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Scrolls the page around `widget`, if there is one, until it can be seen.
    static void Reveal(QWidget& widget);

  protected:
    // A control that is disabled passes the focus on, which must not scroll.
    bool focusNextPrevChild(bool next) override { return QWidget::focusNextPrevChild(next); }
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// A page whose buttons stay in their place below what scrolls.
class PinnedPage : public QWidget {
  public:
    PinnedPage();

    // What scrolls is laid out in here; it is not stretched beyond what can be overlooked.
    QVBoxLayout* content() const { return content_; }
    void Pin(QLayout* buttons);

  private:
    QVBoxLayout* content_;
    QVBoxLayout* outer_;
};

// Puts its items side by side in columns of one width, as many as there is room for.
class ButtonFlow : public QLayout {
  public:
    explicit ButtonFlow(QWidget* parent = nullptr);
    ~ButtonFlow() override;

    void addItem(QLayoutItem* item) override { items_.push_back(item); }
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

  private:
    QSize Cell() const;
    int Columns(int width) const;

    std::vector<QLayoutItem*> items_;
};

// A name that is made smaller until it fits, and never cut off.
class NameLabel : public QLabel {
  public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override { return {20, QLabel::minimumSizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// A text of any length, read-only, in a fixed-pitch face. Only its beginning is shown, with the
// length of the whole behind it. It is laid out only where it can be seen, as it changes with each
// frame.
class LongTextView : public QPlainTextEdit {
  public:
    static constexpr std::size_t kShown = 2048;

    LongTextView();

    void Show(const std::string& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void LayOut();

    std::string beginning_;
    std::size_t length_ = 0;
    bool laid_out_ = true;
};

}  // namespace kestrane
