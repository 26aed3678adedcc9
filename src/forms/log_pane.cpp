#include "forms/log_pane.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextCursor>

#include "forms/look/spacing.h"
#include "forms/message_strip.h"
#include "forms/mirror.h"

namespace kestrane {

LogPane::LogPane(Workbench& bench)
    : bench_(bench),
      filter_(new QLineEdit),
      secrets_(new QCheckBox(QStringLiteral("Show secrets"))),
      text_(new QPlainTextEdit) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kSmallGap);
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    filter_->setPlaceholderText(QStringLiteral("Filter: read, denied, 0x0050 ..."));
    filter_->setAccessibleName(QStringLiteral("Filter of the log"));
    filter_->setClearButtonEnabled(true);
    secrets_->setToolTip(QStringLiteral("Keys, passwords, salts and hashes in the bytes"));
    auto* copy = new QPushButton(QStringLiteral("Copy"));
    auto* save = new QPushButton(QStringLiteral("Save..."));
    row->addWidget(filter_, 1);
    row->addWidget(secrets_);
    row->addWidget(copy);
    row->addWidget(save);
    column->addLayout(row);
    text_->setReadOnly(true);
    text_->setFont(FixedPitch());
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setMaximumBlockCount(static_cast<int>(FrameLog::kMost + Messages::kMost));
    text_->setUndoRedoEnabled(false);
    text_->setTabChangesFocus(true);
    text_->setAccessibleName(QStringLiteral("Log"));
    text_->setMinimumHeight(5 * fontMetrics().lineSpacing());
    column->addWidget(text_, 1);
    filter_->setProperty(kKeepsKeyboard, true);
    QObject::connect(filter_, &QLineEdit::textChanged, this, [this] { Rebuild(); });
    QObject::connect(secrets_, &QCheckBox::toggled, this, [this] { Rebuild(); });
    QObject::connect(copy, &QPushButton::clicked, this,
                     [this] { QGuiApplication::clipboard()->setText(Text()); });
    QObject::connect(save, &QPushButton::clicked, this, [this] { Save(); });
    bench.messages.OnAdded([this](const Message& message) { Append(LineOf(message)); });
    bench.log.OnAdded(
        [this](bool added) { added ? Append(LineOf(bench_.log.Lines().back())) : Repeat(); });
}

QString LogPane::LineOf(const LogLine& line) const {
    QString text = TimeOfDay(bench_.tool, line.when) + QLatin1String(line.write ? "  > " : "  < ") +
                   QString::fromStdString(line.words);
    if (line.times > 1) text += QStringLiteral(" (%1 times)").arg(line.times);
    if (line.bytes.empty()) return text;
    const bool hidden = line.secret && !secrets_->isChecked();
    return text + QStringLiteral("  ") +
           (hidden ? QStringLiteral("(secret)") : QString::fromStdString(line.bytes));
}

QString LogPane::LineOf(const Message& message) const {
    return TimeOfDay(bench_.tool, message.when) + QStringLiteral("  * ") +
           QString::fromStdString(message.text);
}

bool LogPane::Passes(const QString& line) const {
    return filter_->text().isEmpty() || line.contains(filter_->text(), Qt::CaseInsensitive);
}

// Both run in the order of time; a message follows the frames that it is about.
QString LogPane::Text() const {
    QStringList lines;
    const auto add = [&](const QString& line) {
        if (Passes(line)) lines << line;
    };
    auto message = bench_.messages.All().begin();
    const auto end = bench_.messages.All().end();
    for (const LogLine& line : bench_.log.Lines()) {
        while (message != end && static_cast<std::int32_t>(message->when - line.when) < 0) {
            add(LineOf(*message++));
        }
        add(LineOf(line));
    }
    while (message != end) add(LineOf(*message++));
    return lines.join(u'\n');
}

void LogPane::Rebuild() {
    text_->setPlainText(Text());
    text_->moveCursor(QTextCursor::End);
}

void LogPane::Append(const QString& line) {
    if (isVisible() && Passes(line)) text_->appendPlainText(line);
}

// The last line has come once more: only its count and time differ.
void LogPane::Repeat() {
    if (!isVisible()) return;
    const QString line = LineOf(bench_.log.Lines().back());
    if (!Passes(line)) return;
    QTextCursor cursor(text_->document()->lastBlock());
    cursor.select(QTextCursor::BlockUnderCursor);
    cursor.insertText((text_->blockCount() > 1 ? QStringLiteral("\n") : QString()) + line);
}

void LogPane::Save() {
    auto* dialog = new QFileDialog(this, QStringLiteral("Save log"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("txt"));
    QObject::connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        QSaveFile file(path);
        const bool saved =
            file.open(QIODevice::WriteOnly) && file.write(Text().toUtf8()) >= 0 && file.commit();
        bench_.messages.Add(
            saved ? MessageKind::kGood : MessageKind::kFault,
            (saved ? "Saved " : "The log could not be saved as ") + path.toStdString() + ".");
    });
    dialog->open();
}

void LogPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Rebuild();
}

}  // namespace kestrane
