#pragma once

// A box for a line of source text, which Enter puts into the program at the cursor.

#include <QLineEdit>
#include <functional>

namespace kestrane {

class SourceBox : public QLineEdit {
  public:
    // `enter` may come back to Taken() later.
    explicit SourceBox(std::function<void(const QString&)> enter);

    // The line stands in the program: room for the next.
    void Taken() { clear(); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    std::function<void(const QString&)> enter_;
};

}  // namespace kestrane
