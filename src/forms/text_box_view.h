#pragma once

// The view of a text box. The model owns the text: the view shows it and passes keys, pastes and
// deletions to the hand, and takes nothing into its own text by itself. Only the cursor and the
// selection move in the view first, and are told to the model before a key.

#include <QLineEdit>

#include "forms/binder.h"

namespace kestrane {

class TextBoxView : public QLineEdit {
  public:
    // `columns`: the width in characters; 0: by the maximum length.
    TextBoxView(Mirror& mirror, TextBox& box, int columns);

    // Brings text, mask and, in the box that has the focus, the selection of the model into the
    // view. The others show their beginning, with nothing selected.
    void SyncFromModel();
    void PushSelection();

    void UseFixedPitch();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    bool HandleEdit(const QKeyEvent& event);
    void TypeText(const QString& text);
    void PasteFrom(const QString& text);
    void Delete();
    void Cut();
    // Runs `edit` between telling the model the selection and showing what has come of it.
    template <class Edit>
    void WithModel(Edit edit);

    Mirror& mirror_;
    TextBox& box_;
    int columns_;
};

class TextBoxBinder : public Binder {
  public:
    TextBoxBinder(Mirror& mirror, TextBox& box, TextBoxView& view)
        : Binder(mirror, box, view), view_(view) {}

  protected:
    void SyncKind() override { view_.SyncFromModel(); }
    QPalette MakePalette(const QPalette& palette) const override;

  private:
    TextBoxView& view_;
};

}  // namespace kestrane
