#include <gtest/gtest.h>

#include <QApplication>

#include "forms/look/look.h"

// Without a display. KESTRANE_LOOK=dark takes the dark look.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const bool dark = qgetenv("KESTRANE_LOOK") == "dark";
    kestrane::ApplyLook(dark ? kestrane::Look::kDark : kestrane::Look::kLight);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
