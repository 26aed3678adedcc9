#pragma once

// What the forms' layouts have in common: one grid, fields as pairs of label and box.

#include <QGridLayout>
#include <initializer_list>

#include "forms/look/spacing.h"
#include "forms/mirror.h"

namespace kestrane {

// A grid in the body of a frame.
QGridLayout* GridIn(FrameView* frame);

// A box layout with no margins of its own.
QHBoxLayout* Row();
QVBoxLayout* Column();

// Frames side by side.
QHBoxLayout* RowOfFrames();

// A label in `column` and its box to the right of it.
TextBoxView* AddField(Mirror& mirror, QGridLayout* grid, int row, int column, Label& label,
                      TextBox& box, int columns = 0);

// A check box with its text behind it; a click on the text counts as one on the box.
QLayout* CheckWithLabel(Mirror& mirror, CheckBox& box, Label& label);

// Buttons side by side, from the left.
QHBoxLayout* ButtonRow(Mirror& mirror, std::initializer_list<Button*> buttons);

// A text that is the view's own, no control.
QLabel* Caption(const QString& text);

// What is read and not used, a status text or a legend, never stands back.
template <class T>
T* KeepReadable(T* widget) {
    widget->setProperty(kStaysEnabled, true);
    widget->setEnabled(true);
    return widget;
}
FrameView* KeepReadable(FrameView* frame);

// Keeps its place when it is hidden.
template <class T>
T* KeepPlace(T* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    return widget;
}

// At least as wide as this text, so that a change moves nothing.
void ReserveWidth(QLabel* label, const char* text);

}  // namespace kestrane
