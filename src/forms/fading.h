#pragma once

// Lights and values that the unit shows live fade while its last answer is older than a second,
// and a text says how old it is. It looks only while its window is to be seen.

#include <QLabel>
#include <QObject>
#include <QTimer>
#include <vector>

#include "forms/widgets.h"

namespace kestrane {

class LiveAnswers;

class Fading : public QObject {
  public:
    // `window` owns it.
    Fading(QWidget& window, const LiveAnswers& answers);

    void Add(LightView* light) { lights_.push_back(light); }
    void Add(QLabel* value) { values_.push_back(value); }
    // Where the age is said: "last answer 4 s ago".
    void SayIn(QLabel* said) { said_ = said; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Look();

    const LiveAnswers& answers_;
    QTimer looks_;
    std::vector<LightView*> lights_;
    std::vector<QLabel*> values_;
    QLabel* said_ = nullptr;
};

}  // namespace kestrane
