#include "stylelistitem.h"

#include "ktpsstylelist.h"

#include <QBrush>
#include <QPainter>
#include <QPalette>

namespace TORV_PLOT_SPECIALLY_SPCAE {

StyleListItem::StyleListItem(QWidget* parent)
    : QWidget(parent)
    , color(QColor::fromRgb(255, 255, 255, 255))
    , index(-1)
    , list(nullptr)
{
    setFixedSize(185, 20);
}

StyleListItem::StyleListItem(KtPsStyleList* list, QString name, QColor color, int index)
    : QWidget(nullptr)
    , name(name)
    , color(color)
    , index(index)
    , list(list)
{
    setFixedSize(185, 20);
}

StyleListItem::~StyleListItem() = default;

bool StyleListItem::isSelected() const
{
    return list && list->currentRow() == index;
}

QString StyleListItem::convertRGBToHexColor(QColor color)
{
    const QChar zero(QLatin1Char('0'));
    return QStringLiteral("#") + QStringLiteral("%1").arg(color.red(), 2, 16, zero)
        + QStringLiteral("%1").arg(color.green(), 2, 16, zero)
        + QStringLiteral("%1").arg(color.blue(), 2, 16, zero);
}

void StyleListItem::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);

    QPainter painter(this);
    painter.setBrush(QBrush(color, Qt::SolidPattern));
    if (isSelected()) {
        // Dark text means a light theme: a light highlight keeps the name readable.
        const qreal lightness
            = palette().color(palette().currentColorGroup(), QPalette::WindowText).lightnessF();
        const QRect highlight(QPoint(25, 0), QPoint(width() - 1, height() - 1));
        painter.fillRect(highlight, lightness < 0.5 ? Qt::lightGray : Qt::darkBlue);
    }
    painter.drawRect(QRect(11, 4, 12, 12));
    painter.drawText(QPointF(35.0, 15.0), name);
}

} // namespace TORV_PLOT_SPECIALLY_SPCAE
