#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

#include "forms/look/look.h"

// Without a display, and in the look that the pictures are judged in.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const bool dark = qgetenv("KESTRANE_LOOK") == "dark";
    kestrane::ApplyLook(dark ? kestrane::Look::kDark : kestrane::Look::kLight);
    if (const int points = qEnvironmentVariableIntValue("KESTRANE_FONT"); points > 0) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
