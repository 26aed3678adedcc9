#include "forms/listing_row.h"

#include <QPainter>
#include <algorithm>

#include "forms/look/look.h"
#include "forms/look/spacing.h"

namespace kestrane {
namespace {

// The margin holds three signs side by side: where an insert lands, a finding, a difference.
constexpr int kSign = 11;
constexpr int kMarginOfSigns = kSmallGap + 3 * kSign + 2;

constexpr QChar kEllipsis(0x2026);

QColor Faint(QColor colour, float opacity) {
    colour.setAlphaF(opacity);
    return colour;
}

}  // namespace

void ListingRow::AddCell(QLabel* cell, int width) {
    cell->setParent(this);
    cells_.push_back({cell, width});
    updateGeometry();
}

void ListingRow::SetMarks(const RowMarks& marks) {
    const bool same = marks_ == marks;
    marks_ = marks;
    PlaceText();
    if (!same) update();
}

QSize ListingRow::sizeHint() const {
    int width = kMarginOfSigns + kGap;
    int height = fontMetrics().height();
    for (const Cell& cell : cells_) {
        width += cell.width + kGap;
        height = std::max(height, cell.label->fontMetrics().height());
    }
    return {width, height + 2};
}

// A label of a fixed size asks no layout for anything when its text changes.
void ListingRow::resizeEvent(QResizeEvent*) {
    int left = kMarginOfSigns + kSmallGap;
    for (const Cell& cell : cells_) {
        cell.label->setFixedSize(cell.width, height());
        cell.label->move(left, 0);
        left += cell.width + kGap;
    }
    PlaceText();
}

// Names and text share a row that is too short for both: the names get two fifths at most.
void ListingRow::PlaceText() {
    if (cells_.empty()) return;
    QLabel& text = *cells_.back().label;
    const int room = width() - text.x() - kSmallGap;
    const int whole = text.fontMetrics().horizontalAdvance(text.text());
    int width = room;
    if (!marks_.names.isEmpty()) {
        const int names = QFontMetrics(NamesFont()).horizontalAdvance(marks_.names) + 2 * kGap;
        width -= std::min(names, std::max(room * 2 / 5, room - whole));
    }
    const bool cut = whole > width;
    if (cut) width -= text.fontMetrics().horizontalAdvance(kEllipsis);
    if (cut != text_is_cut_) update();
    text_is_cut_ = cut;
    if (text.size() != QSize(width, height())) text.setFixedSize(width, height());
}

void ListingRow::paintEvent(QPaintEvent* event) {
    RowView::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintGround(painter);
    PaintMargin(painter);
    PaintNames(painter);
}

void ListingRow::PaintGround(QPainter& painter) const {
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (marks_.runs) {
        painter.setPen(QPen(GoodColour(palette()), 1.6, Qt::DashLine));
        painter.setBrush(Faint(GoodColour(palette()), 0.2f));
        painter.drawRoundedRect(area, 3, 3);
    }
    if (!marks_.selected || marked()) return;
    const QColor mark = palette().color(QPalette::Active, QPalette::Highlight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Faint(mark, 0.22f));
    painter.drawRoundedRect(area, 3, 3);
}

void ListingRow::PaintMargin(QPainter& painter) const {
    const qreal middle = rect().center().y() + 0.5;
    qreal left = kSmallGap;
    painter.setPen(Qt::NoPen);
    if (marks_.insert) {
        painter.setBrush(palette().color(QPalette::Active, QPalette::Highlight));
        painter.drawPolygon(QPolygonF(
            {QPointF(left, middle - 5), QPointF(left + 8, middle), QPointF(left, middle + 5)}));
    }
    left += kSign;
    if (marks_.finding != RowMarks::Finding::kNone) {
        const bool error = marks_.finding == RowMarks::Finding::kError;
        painter.setBrush(error ? FaultColour(palette()) : WarningColour(palette()));
        if (error) {
            painter.drawEllipse(QPointF(left + 5, middle), 5, 5);
        } else {
            painter.drawPolygon(
                QPolygonF({QPointF(left + 5, middle - 5.5), QPointF(left + 10.5, middle + 5),
                           QPointF(left - 0.5, middle + 5)}));
        }
        painter.setPen(QPen(palette().color(QPalette::Base), 1.4));
        painter.drawLine(QPointF(left + 5, middle - 2.5), QPointF(left + 5, middle + 1));
        painter.drawPoint(QPointF(left + 5, middle + 3.2));
        painter.setPen(Qt::NoPen);
    }
    left += kSign + 1;
    if (!marks_.differs) return;
    painter.setBrush(ChangedColour(palette()));
    painter.drawEllipse(QPointF(left + 4, middle), 3, 3);
}

QFont ListingRow::NamesFont() const {
    QFont italic = font();
    italic.setItalic(true);
    return italic;
}

// To the right, in what the text leaves free.
void ListingRow::PaintNames(QPainter& painter) const {
    if (cells_.empty()) return;
    const QLabel& text = *cells_.back().label;
    QRect room(text.geometry().right() + 1, 0, width() - text.geometry().right() - kGap, height());
    if (text_is_cut_) {
        painter.setFont(text.font());
        painter.setPen(text.palette().color(QPalette::WindowText));
        painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, QString(kEllipsis));
        room.setLeft(room.left() + text.fontMetrics().horizontalAdvance(kEllipsis));
    }
    if (marks_.names.isEmpty()) return;
    const int whole = text.fontMetrics().horizontalAdvance(text.text());
    room.setLeft(std::min(room.left(), text.x() + whole) + kGap);
    painter.setFont(NamesFont());
    painter.setPen(Readable(ChangedColour(palette()), palette().color(QPalette::Base)));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight,
                     painter.fontMetrics().elidedText(marks_.names, Qt::ElideRight, room.width()));
}

}  // namespace kestrane
