#pragma once

// A row of the listing. It lays its cells out by itself, so that a new text repaints its cell and
// nothing else, and draws in the margin what the editor knows of the line.

#include <vector>

#include "forms/widgets.h"

namespace kestrane {

struct RowMarks {
    enum class Finding { kNone, kWarning, kError };

    bool insert = false;    // the next insert lands here
    bool differs = false;   // from the unit
    bool runs = false;      // in the simulation
    bool selected = false;  // for copying
    Finding finding = Finding::kNone;
    QString names;  // labels and triggers

    bool operator==(const RowMarks&) const = default;
};

class ListingRow : public RowView {
  public:
    // Cells from left to right; the last one takes the rest, and at least this width.
    void AddCell(QLabel* cell, int width);

    void SetMarks(const RowMarks& marks);
    const RowMarks& marks() const { return marks_; }
    // The names have taken room that the text needs.
    bool TextIsCut() const { return text_is_cut_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Cell {
        QLabel* label;
        int width;
    };

    // Gives the last cell what the names leave.
    void PlaceText();
    QFont NamesFont() const;
    void PaintGround(QPainter& painter) const;
    void PaintMargin(QPainter& painter) const;
    void PaintNames(QPainter& painter) const;

    std::vector<Cell> cells_;
    RowMarks marks_;
    bool text_is_cut_ = false;
};

}  // namespace kestrane
