#include "editors/screens/EnvelopeView.h"

#include "editors/EnvelopeCopy.h"
#include "editors/EnvelopeDrag.h"
#include "editors/EnvelopeGraph.h"
#include "editors/screens/EditorWidgets.h"
#include "shell/AppModel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace quillon {

namespace {

QColor rgb(int colour) { return QColor(QRgb(static_cast<unsigned>(colour))); }

}  // namespace

EnvelopePicture::EnvelopePicture(AppModel& model, QWidget* parent) : QWidget(parent), model_(model)
{
    setObjectName("picFrame");
    const double scale = screenScale(this);
    setFixedSize(twipsToPixels(kWidth, scale), twipsToPixels(kHeight, scale));
    setAutoFillBackground(true);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, Qt::white);
    setPalette(colours);
    setCursor(Qt::CrossCursor);
}

void EnvelopePicture::paintEvent(QPaintEvent*)
{
    const EnvelopeGraph& graph = model_.envelope;
    const double k = screenScale(this) / 15.0;  // pixels per twip
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x80, 0x80, 0x80), 1, Qt::DashLine));
    painter.drawLine(QPointF(0, EnvelopeGraph::Baseline * k), QPointF(width(), EnvelopeGraph::Baseline * k));
    painter.setPen(QPen(QColor(0x20, 0x40, 0xA0), 2));
    for (const EnvelopeLine& line : graph.linSlope)
        painter.drawLine(QPointF(line.x1 * k, line.y1 * k), QPointF(line.x2 * k, line.y2 * k));
    painter.setPen(QPen(Qt::black, 1));
    for (const EnvelopeCircle& circle : graph.shaCircle) {
        painter.setBrush(rgb(circle.colour));
        painter.drawEllipse(QRectF(circle.left * k, circle.top * k, 2 * EnvelopeGraph::CircleRadius * k,
                                   2 * EnvelopeGraph::CircleRadius * k));
    }
}

void EnvelopePicture::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const double scale = screenScale(this);
    pressEnvelope(model_.envelope, static_cast<float>(pixelsToTwips(event->position().x(), scale)),
                  static_cast<float>(pixelsToTwips(event->position().y(), scale)));
    emit edited();
}

void EnvelopePicture::mouseMoveEvent(QMouseEvent* event)
{
    if (model_.envelope.Grabbed < 0)
        return;
    const double scale = screenScale(this);
    dragEnvelope(model_.envelope, static_cast<float>(pixelsToTwips(event->position().x(), scale)),
                 static_cast<float>(pixelsToTwips(event->position().y(), scale)),
                 (event->buttons() & Qt::LeftButton) != 0);
    emit edited();
}

void EnvelopePicture::mouseReleaseEvent(QMouseEvent*)
{
    releaseEnvelope(model_);
    emit edited();
}

EnvelopeView::EnvelopeView(AppModel& model, QWidget* parent) : QGroupBox(parent), model_(model)
{
    setObjectName("fraEnvelope");
    auto* column = new QVBoxLayout(this);
    picture_ = new EnvelopePicture(model_, this);
    connect(picture_, &EnvelopePicture::edited, this, &EnvelopeView::mirror);
    column->addWidget(picture_, 0, Qt::AlignHCenter);

    auto* readings = new QGridLayout;
    const char* names[] = {"lblTimeName", "lblTimeVal", "lblLevelName", "lblLevelVal"};
    for (int i = 0; i < 4; ++i) {
        auto* label = new QLabel(this);
        label->setObjectName(names[i]);
        label->setContentsMargins(4, 1, 4, 1);
        label->setStyleSheet(schemeStyle(EnvelopeGraph::LabelScheme, this));
        readings->addWidget(label, i / 2, i % 2);
        values_[static_cast<std::size_t>(i)] = label;
    }

    auto* legend = new QHBoxLayout;
    auto* square = new QLabel(this);
    square->setObjectName("shaSquareLegend");
    square->setFixedSize(10, 10);
    square->setStyleSheet("background-color: black;");
    auto* keyOff = new QLabel(kKeyOffCaption, this);
    keyOff->setObjectName("lblKeyOff");
    legend->addWidget(square);
    legend->addWidget(keyOff);
    legend->addStretch(1);
    readings->addLayout(legend, 0, 2);
    readings->setColumnStretch(2, 1);
    column->addLayout(readings);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(new QLabel("Copy to:", this));
    for (int i = 1; i <= 5; ++i) {
        auto* button = new ClickLabel(this);
        button->setObjectName(QString("lblEG_%1").arg(i));
        button->setContentsMargins(6, 2, 6, 2);
        button->setCursor(Qt::PointingHandCursor);
        connect(button, &ClickLabel::pressed, this, [this, i](Qt::MouseButton b) {
            if (b == Qt::LeftButton)
                pressCopyButton(model_, i);
            mirror();
        });
        connect(button, &ClickLabel::released, this, [this, i](Qt::MouseButton b) {
            if (b == Qt::LeftButton)
                releaseCopyButton(model_, i);
            mirror();
        });
        buttons->addWidget(button);
        copy_[static_cast<std::size_t>(i)] = button;
    }
    buttons->addStretch(1);
    column->addLayout(buttons);
    column->addStretch(1);
}

void EnvelopeView::mirror()
{
    const EnvelopeGraph& graph = model_.envelope;
    setTitle(QString::fromStdString(graph.caption));
    const EnvelopeLabel* labels[] = {&graph.lblTimeName, &graph.lblTimeVal, &graph.lblLevelName, &graph.lblLevelVal};
    for (int i = 0; i < 4; ++i) {
        QLabel* label = values_[static_cast<std::size_t>(i)];
        label->setText(QString::fromStdString(labels[i]->caption));
        // Hidden labels keep their room, so the drawing does not jump.
        QSizePolicy policy = label->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        label->setSizePolicy(policy);
        label->setVisible(labels[i]->visible);
    }
    for (int i = 1; i <= 5; ++i) {
        const EnvelopeCopyButton& state = graph.lblEG[static_cast<std::size_t>(i)];
        ClickLabel* button = copy_[static_cast<std::size_t>(i)];
        button->setText(QString::fromStdString(state.caption));
        button->setFrameShape(state.border ? QFrame::Box : QFrame::StyledPanel);
        button->setVisible(state.visible);
    }
    picture_->update();
}

}  // namespace quillon
