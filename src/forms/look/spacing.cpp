#include "forms/look/spacing.h"

#include <QApplication>
#include <QFontDatabase>

namespace kestrane {

QFont HeadFont(QFont font) {
    font.setBold(true);
    return font;
}

QFont TitleFont(QFont font) {
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.15);
    return font;
}

QFont FixedPitch() {
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(QApplication::font().pointSizeF());
    return fixed;
}

}  // namespace kestrane
