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

  private:
    std::vector<QString> reserved_;
};

// A light in grey (0), red, green or orange (3).
class LightView : public QWidget {
  public:
    LightView();

    void SetPicture(int picture);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int picture_ = 0;
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

// Scrolls what does not fit, but asks for room for all of it.
class ScrollingPage : public QScrollArea {
  public:
    ScrollingPage();

    void Hold(QWidget* page);
    QSize sizeHint() const override;
};

// A text of any length, read-only, in a fixed-pitch face. Only its beginning is shown, with the
// length of the whole behind it.
class LongTextView : public QPlainTextEdit {
  public:
    static constexpr std::size_t kShown = 2048;

    LongTextView();

    void Show(const std::string& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    std::string beginning_;
    std::size_t length_ = 0;
};

}  // namespace kestrane
