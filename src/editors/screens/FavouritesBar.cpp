#include "editors/screens/FavouritesBar.h"

#include "editors/Navigation.h"
#include "editors/ScreenLayout.h"
#include "shell/AppModel.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace quillon {

FavouritesBar::FavouritesBar(AppModel& model, QWidget* parent) : QWidget(parent), model_(model)
{
    setObjectName("fraFavourites");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    for (int slot = 0; slot < kSlots; ++slot) {
        auto* label = new QLabel(this);
        label->setObjectName(QString("lblFavSubSect_%1").arg(slot));
        label->setToolTip(QString::fromUtf8(kFavouriteTip.data(), static_cast<int>(kFavouriteTip.size())));
        label->setFrameShape(QFrame::StyledPanel);
        label->setMinimumHeight(label->fontMetrics().height() + 6);
        label->setAcceptDrops(true);
        // A click keeps the focus here, out of the value boxes it fills.
        label->setFocusPolicy(Qt::ClickFocus);
        label->installEventFilter(this);
        column->addWidget(label);
        slots_[static_cast<std::size_t>(slot)] = label;
    }
    mirror();
}

void FavouritesBar::mirror()
{
    for (int slot = 0; slot < kSlots; ++slot) {
        const Favourite& favourite = model_.layout.nav.favourites[static_cast<std::size_t>(slot)];
        slots_[static_cast<std::size_t>(slot)]->setText(QString::fromStdString(favourite.caption));
    }
}

void FavouritesBar::watchDragSource(QLabel* caption) { caption->installEventFilter(this); }

bool FavouritesBar::eventFilter(QObject* watched, QEvent* event)
{
    for (int slot = 0; slot < kSlots; ++slot) {
        if (watched == slots_[static_cast<std::size_t>(slot)])
            return handleSlotEvent(slot, event);
    }
    if (auto* source = qobject_cast<QLabel*>(watched))
        return handleSourceEvent(source, event);
    return QWidget::eventFilter(watched, event);
}

bool FavouritesBar::handleSlotEvent(int slot, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto* enter = static_cast<QDragEnterEvent*>(event);
        if (enter->mimeData()->hasFormat(kSubsectionCaptionMime))
            enter->acceptProposedAction();
        return true;
    }
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        const QByteArray caption = drop->mimeData()->data(kSubsectionCaptionMime);
        if (dropOnFavourite(model_, slot, caption.toStdString()))
            drop->acceptProposedAction();
        return true;
    }
    case QEvent::MouseButtonRelease: {
        const auto* release = static_cast<QMouseEvent*>(event);
        const Qt::KeyboardModifiers keys = release->modifiers();
        clickFavourite(model_, slot,
                       {release->button() == Qt::LeftButton, (keys & Qt::ShiftModifier) != 0,
                        (keys & Qt::ControlModifier) != 0, (keys & Qt::AltModifier) != 0});
        return true;
    }
    default:
        return false;
    }
}

bool FavouritesBar::handleSourceEvent(QLabel* source, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        pressedAt_ = static_cast<QMouseEvent*>(event)->position().toPoint();
        return false;
    }
    if (event->type() != QEvent::MouseMove)
        return false;
    const auto* move = static_cast<QMouseEvent*>(event);
    if (!(move->buttons() & Qt::LeftButton) ||
        (move->position().toPoint() - pressedAt_).manhattanLength() < QApplication::startDragDistance())
        return false;
    auto* data = new QMimeData;
    data->setData(kSubsectionCaptionMime, source->text().toUtf8());
    data->setText(source->text());
    auto* drag = new QDrag(source);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
    return true;
}

}  // namespace quillon
