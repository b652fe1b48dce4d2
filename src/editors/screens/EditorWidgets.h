#pragma once

#include "editors/ColourSchemes.h"

#include <QLabel>
#include <QSpinBox>
#include <QString>

class QLineEdit;
class QWidget;

namespace quillon {

// The small controls the patch and multi screens are made of, and the
// measures they share.

// Pixels per pixel at 96 dpi on the screen of a widget: the logical DPI over
// 96 (the device pixel ratio is Qt's own business).
double screenScale(const QWidget* widget);

// Twips to pixels and back on that screen: 15 twips to a pixel at 96 dpi.
int twipsToPixels(double twips, double scale);
int pixelsToTwips(double pixels, double scale);

// The style sheet of a label in colour scheme `scheme` (1 to 13); empty for
// any other number.
QString schemeStyle(int scheme, const QWidget* widget);
// The same for a pair of colours of its own.
QString colourStyle(const ColourScheme& colours, const QWidget* widget);

// The style of a label of what is in memory (lblLoaded, the bank labels):
// its colour scheme, and a frame and bold type when it is the one the
// screen works on.
QString loadedLabelStyle(int scheme, bool highlighted, const QWidget* label);

// Sets a style sheet only when it differs: every setting polishes the widget
// again, which a screen set-up would otherwise pay for on each label.
void restyle(QWidget* widget, const QString& styleSheet);

// A row's value box and spin arrows show a value without their change
// events: the box its text, the arrows the value, first within a wide range
// so that the range of what the row showed before cannot clamp it.
void showRowValue(QLineEdit* box, QSpinBox* spin, const QString& text, int value, int min, int max);

// A label that reports presses, releases and double clicks.
class ClickLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

signals:
    void pressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void released(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void doubleClicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

// updParamVal: the arrows of a spin control beside its value box, which
// holds the number. A step of the arrows does not change the value here: it
// is reported, and the value comes back from the model. A right press
// reports where it fell, in twips from the top.
class SpinArrows : public QSpinBox {
    Q_OBJECT
public:
    explicit SpinArrows(QWidget* parent = nullptr);
    void stepBy(int steps) override;

signals:
    void stepped(bool up);
    void rightPressed(int yTwips);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    StepEnabled stepEnabled() const override;
};

}  // namespace quillon
