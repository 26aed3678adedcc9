#include "forms/fading.h"

#include <QEvent>

#include "editing/live_answers.h"

namespace kestrane {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks{500};

}  // namespace

Fading::Fading(QWidget& window, const LiveAnswers& answers) : QObject(&window), answers_(answers) {
    looks_.setInterval(kBetweenLooks);
    QObject::connect(&looks_, &QTimer::timeout, this, [this] { Look(); });
    window.installEventFilter(this);
}

bool Fading::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        Look();
        looks_.start();
    } else if (event->type() == QEvent::Hide) {
        looks_.stop();
    }
    return QObject::eventFilter(watched, event);
}

void Fading::Look() {
    const auto age = answers_.Age();
    const bool faded = age && *age > LiveAnswers::kFresh;
    for (LightView* light : lights_) light->SetFaded(faded);
    const auto role = faded ? QPalette::PlaceholderText : QPalette::WindowText;
    for (QLabel* value : values_) {
        if (value->foregroundRole() != role) value->setForegroundRole(role);
    }
    if (!said_) return;
    const auto seconds = age ? std::chrono::duration_cast<std::chrono::seconds>(*age).count() : 0;
    said_->setText(faded ? QStringLiteral("last answer %1 s ago").arg(seconds) : QString());
}

}  // namespace kestrane
