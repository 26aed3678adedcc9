// What Qt alone takes to bring up a window of eight pages with a dozen boxes each: the measure of
// the tool's start.

#include <QApplication>
#include <QFormLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QTabWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    auto* tabs = new QTabWidget;
    for (int page = 0; page < 8; ++page) {
        auto* boxes = new QWidget;
        auto* rows = new QFormLayout(boxes);
        for (int box = 0; box < 12; ++box) {
            rows->addRow(QStringLiteral("Setting %1").arg(box), new QLineEdit);
        }
        tabs->addTab(boxes, QStringLiteral("Page %1").arg(page));
    }
    window.setCentralWidget(tabs);
    window.show();
    return QApplication::exec();
}
