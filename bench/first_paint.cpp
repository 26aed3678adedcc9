// A plugin that any program of Qt loads on QT_QPA_GENERIC_PLUGINS=first_paint: it ends the program
// once its first window was painted.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <cstdlib>

namespace {

class EndAfterPaint : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        // Handled before all else that is posted, once the window and what is in it was painted.
        if (event->type() == QEvent::Paint && !painted_) {
            painted_ = true;
            QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        }
        return false;
    }

  protected:
    void customEvent(QEvent*) override { std::_Exit(0); }

  private:
    bool painted_ = false;
};

}  // namespace

class FirstPaint : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "first_paint.json")

  public:
    QObject* create(const QString&, const QString&) override {
        auto* end = new EndAfterPaint;
        QCoreApplication::instance()->installEventFilter(end);
        return end;
    }
};

#include "first_paint.moc"
