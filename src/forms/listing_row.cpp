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
    if (marks_ == marks) return;
    marks_ = marks;
    update();
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
        const bool last = &cell == &cells_.back();
        const int room = last ? std::max(cell.width, width() - left - kSmallGap) : cell.width;
        cell.label->setFixedSize(room, height());
        cell.label->move(left, 0);
        left += cell.width + kGap;
    }
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

// To the right, in what the text leaves free.
void ListingRow::PaintNames(QPainter& painter) const {
    if (marks_.names.isEmpty() || cells_.empty()) return;
    const QLabel& text = *cells_.back().label;
    const int used = text.fontMetrics().horizontalAdvance(text.text());
    const QRect room(text.x() + used + kGap, 0, width() - text.x() - used - 2 * kGap, height());
    QFont italic = font();
    italic.setItalic(true);
    painter.setFont(italic);
    painter.setPen(Readable(ChangedColour(palette()), palette().color(QPalette::Base)));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight,
                     QFontMetrics(italic).elidedText(marks_.names, Qt::ElideRight, room.width()));
}

}  // namespace kestrane
