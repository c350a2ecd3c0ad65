#include "ktpslineweightcombobox.h"

#include "ktpsstylecombo_p.h"
#include "ktresourcetext.h"

#include <QPainter>
#include <QPen>
#include <QPixmap>

namespace TORV_PLOT_SPECIALLY_SPCAE {

KtPsLineWeightComboBox::KtPsLineWeightComboBox(QWidget* parent)
    : QComboBox(parent)
    , unit(1)
{
    setIconSize(QSize(80, 25));
}

KtPsLineWeightComboBox::~KtPsLineWeightComboBox() = default;

void KtPsLineWeightComboBox::setLineWeightList(QVector<double>& list)
{
    lineWeights = list;
    refreshLineWeightList();
}

QVector<double> KtPsLineWeightComboBox::getLineWeightList()
{
    return lineWeights;
}

void KtPsLineWeightComboBox::refreshLineWeightList()
{
    // Signals are left on: callers rely on QComboBox's own index signals here.
    clear();
    addItem(QIcon(), ktutResourceText(L"IDS_PLOTSTYLEOPTIONCMD_55", L"使用对象线宽"), QVariant(0));
    for (int i = 0; i < lineWeights.size(); ++i)
        drawPixLine(i + 1, lineWeights.at(i));
}

void KtPsLineWeightComboBox::resetUnit(bool inches)
{
    unit = inches ? 0 : 1;
    refreshLineWeightList();
}

void KtPsLineWeightComboBox::setCurrentLineWeight(int position)
{
    for (int row = 0; row < count(); ++row) {
        if (itemData(row, Qt::UserRole).toInt() == position) {
            detail::selectRowSilently(this, row);
            return;
        }
    }
}

double KtPsLineWeightComboBox::getLineWeight(int row)
{
    return itemData(row, Qt::UserRole).toDouble();
}

void KtPsLineWeightComboBox::drawPixLine(int position, double weight)
{
    QPixmap pixmap(80, 25);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        QPen pen = painter.pen();
        // Truncated toward zero: 0.25 mm draws 3 pixels wide. Widths a pen cannot
        // take (QPen keeps its width outside 0 .. 32767) leave the default pen,
        // without QPen's warning and before an undefined double-to-int cast.
        const double width = weight * 10.0 + 1.0;
        if (width > -1.0 && width < 32768.0)
            pen.setWidth(int(width));
        painter.setPen(pen);
        painter.drawLine(0, 12, 80, 12);
    }

    // Any unit other than 0 or 1 shows the millimetre number with the inch word;
    // the class itself never sets such a unit.
    double divisor = 1.0;
    QString unitWord;
    if (unit == 1) {
        unitWord = ktutResourceText(L"IDS_WBLOCKDLG_7", L"毫米");
    } else {
        if (unit == 0)
            divisor = 25.4;
        unitWord = ktutResourceText(L"IDS_WBLOCKDLG_4", L"英寸");
    }
    const QString text = QString::number(weight / divisor, 'f', 4) + QLatin1Char(' ') + unitWord;
    addItem(QIcon(pixmap), text, QVariant(position));
}

} // namespace TORV_PLOT_SPECIALLY_SPCAE
