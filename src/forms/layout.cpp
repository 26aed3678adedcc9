#include "forms/layout.h"

#include <QApplication>
#include <algorithm>

namespace kestrane {
QGridLayout* GridIn(FrameView* frame) {
    auto* grid = new QGridLayout(frame->body());
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap - 2);
    return grid;
}

QHBoxLayout* Row() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap);
    return row;
}

QVBoxLayout* Column() {
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kBetweenFrames);
    return column;
}

QHBoxLayout* RowOfFrames() {
    QHBoxLayout* row = Row();
    row->setSpacing(kBetweenFrames);
    return row;
}

TextBoxView* AddField(Mirror& mirror, QGridLayout* grid, int row, int column, Label& label,
                      TextBox& box, int columns) {
    grid->addWidget(mirror.Make(label), row, column);
    TextBoxView* view = mirror.Make(box, columns);
    view->setAccessibleName(QString::fromStdString(label.Caption()));
    mirror.PairWithLabel(box, label);
    grid->addWidget(view, row, column + 1, Qt::AlignLeft | Qt::AlignVCenter);
    return view;
}

QLayout* CheckWithLabel(Mirror& mirror, CheckBox& box, Label& label) {
    QHBoxLayout* row = Row();
    QCheckBox* check = mirror.Make(box);
    check->setAccessibleName(QString::fromStdString(label.Caption()));
    row->addWidget(check);
    row->addWidget(mirror.Make(label), 1);
    mirror.ClickGoesTo(label, box);
    return row;
}

QHBoxLayout* ButtonRow(Mirror& mirror, std::initializer_list<Button*> buttons) {
    QHBoxLayout* row = Row();
    for (Button* button : buttons) row->addWidget(mirror.Make(*button));
    row->addStretch(1);
    return row;
}

QLabel* Caption(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

FrameView* KeepReadable(FrameView* frame) {
    frame->setProperty(kStaysEnabled, true);
    frame->SetTitleEnabled(true);
    return frame;
}

void ReserveWidth(QLabel* label, const char* text) {
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QLatin1String(text)));
}

}  // namespace kestrane
