#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace quillon {

// Answers the next modal window that opens, from inside the event loop that
// runs it: the test names what to do with it (fill a file dialog, press a
// button). Each call waits for one window.
void whenNextModalOpens(std::function<void(QWidget* modal)> answer);

// Answers the next file dialog with a path.
void answerNextFileDialog(const QString& path);

// Presses the button with this text in the next message box, and keeps its
// text for the test.
void answerNextMessageBox(const QString& buttonText, QString* seenText = nullptr, QString* seenTitle = nullptr);

// Answers the next message boxes one after the other, each with the button
// of its turn, and keeps their titles and texts in order.
void answerMessageBoxesInTurn(const QStringList& buttonTexts, QStringList* seenTitles, QStringList* seenTexts);

}  // namespace quillon
