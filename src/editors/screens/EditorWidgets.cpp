#include "editors/screens/EditorWidgets.h"

#include "editors/ColourSchemes.h"
#include "editors/ScreenLayout.h"

#include <QColor>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPalette>
#include <QSignalBlocker>
#include <QWidget>

#include <cmath>

namespace quillon {

namespace {

QColor systemColour(SystemColour which, const QPalette& palette)
{
    switch (which) {
    case SystemColour::ButtonFace: return palette.color(QPalette::Button);
    case SystemColour::ButtonText: return palette.color(QPalette::ButtonText);
    case SystemColour::Highlight: return palette.color(QPalette::Highlight);
    case SystemColour::HighlightText: return palette.color(QPalette::HighlightedText);
    case SystemColour::None: break;
    }
    return {};
}

}  // namespace

double screenScale(const QWidget* widget)
{
    const int dpi = widget != nullptr ? widget->logicalDpiY() : 96;
    return dpi > 0 ? dpi / 96.0 : 1.0;
}

int twipsToPixels(double twips, double scale) { return static_cast<int>(std::lround(twips * scale / 15.0)); }

int pixelsToTwips(double pixels, double scale) { return static_cast<int>(std::lround(pixels * 15.0 / scale)); }

QString schemeStyle(int scheme, const QWidget* widget)
{
    const ColourScheme* colours = colourScheme(scheme);
    return colours != nullptr ? colourStyle(*colours, widget) : QString();
}

QString colourStyle(const ColourScheme& colours, const QWidget* widget)
{
    const QPalette palette = widget != nullptr ? widget->palette() : QPalette();
    const QColor background = colours.backgroundSystem != SystemColour::None
                                  ? systemColour(colours.backgroundSystem, palette)
                                  : QColor(QRgb(colours.background));
    const QColor text = colours.textSystem != SystemColour::None ? systemColour(colours.textSystem, palette)
                                                                 : QColor(QRgb(colours.text));
    return QString("background-color: %1; color: %2;").arg(background.name(), text.name());
}

void showRowValue(QLineEdit* box, QSpinBox* spin, const QString& text, int value, int min, int max)
{
    if (box->text() != text) {
        const QSignalBlocker blocker(box);
        box->setText(text);
    }
    const QSignalBlocker blocker(spin);
    spin->setRange(kSpinWideMin, kSpinWideMax);
    spin->setValue(value);
    spin->setRange(min, max);
}

QString loadedLabelStyle(int scheme, bool highlighted, const QWidget* label)
{
    const QString frame = highlighted ? "font-weight: bold; border: 1px solid black; "
                                      : "border: 1px solid transparent; ";
    return frame + schemeStyle(scheme, label) + " padding: 2px 6px;";
}

void restyle(QWidget* widget, const QString& styleSheet)
{
    if (widget->styleSheet() != styleSheet)
        widget->setStyleSheet(styleSheet);
}

void ClickLabel::mousePressEvent(QMouseEvent* event)
{
    // A label that takes the focus when clicked keeps it while the screen
    // changes beneath it.
    if (focusPolicy() & Qt::ClickFocus)
        setFocus(Qt::MouseFocusReason);
    emit pressed(event->button(), event->modifiers());
    event->accept();
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event)
{
    emit released(event->button(), event->modifiers());
    event->accept();
}

void ClickLabel::mouseDoubleClickEvent(QMouseEvent* event)
{
    emit doubleClicked();
    event->accept();
}

SpinArrows::SpinArrows(QWidget* parent) : QSpinBox(parent)
{
    // Only the arrows show: the value box beside them holds the number.
    lineEdit()->setVisible(false);
    setButtonSymbols(QAbstractSpinBox::UpDownArrows);
    setKeyboardTracking(false);
    setFocusPolicy(Qt::NoFocus);
}

void SpinArrows::contextMenuEvent(QContextMenuEvent* event)
{
    // The right button makes the big step; a menu after it would swallow the
    // next right click.
    event->accept();
}

void SpinArrows::stepBy(int steps)
{
    if (steps != 0)
        emit stepped(steps > 0);
}

QAbstractSpinBox::StepEnabled SpinArrows::stepEnabled() const
{
    // The model decides what a step does at the limits.
    return StepUpEnabled | StepDownEnabled;
}

void SpinArrows::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        emit rightPressed(pixelsToTwips(event->position().y(), screenScale(this)));
        event->accept();
        return;
    }
    QSpinBox::mousePressEvent(event);
}

}  // namespace quillon
