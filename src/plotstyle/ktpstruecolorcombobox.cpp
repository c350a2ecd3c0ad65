#include "ktpstruecolorcombobox.h"

#include "ktresourcetext.h"
#include "ktstringconversion.h"

#include <KtString>
#include <QBrush>
#include <QIcon>
#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>
#include <QStyledItemDelegate>

#include <cwchar>

namespace TORV_PLOT_SPECIALLY_SPCAE {

const QColor g_global_color[7] = {
    QColor(255, 0, 0),
    QColor(255, 255, 0),
    QColor(0, 255, 0),
    QColor(0, 255, 255),
    QColor(0, 0, 255),
    QColor(255, 0, 255),
    QColor(0, 0, 0),
};

namespace {

enum Kind { kFixedColor = 0, kChooseColor = 1, kUseObject = 2, kSpecialColor = 3 };

constexpr wchar_t kColorIndexDefault[] = L"颜色 %d";

QPixmap swatch(const QColor& color)
{
    QPixmap pixmap(12, 12);
    pixmap.fill(color);
    return pixmap;
}

QString rgbText(const QColor& color)
{
    return QStringLiteral("%1, %2, %3").arg(color.red()).arg(color.green()).arg(color.blue());
}

// True when @p format holds exactly one integer conversion (%d or %i, with
// flags and width) and otherwise only "%%": the only shape that is safe to hand
// to printf-style formatting with one int. A translation that asks for more
// (or for a string) would read arguments that are not there.
bool takesOneInt(const wchar_t* format)
{
    int conversions = 0;
    for (const wchar_t* p = format; *p; ++p) {
        if (*p != L'%')
            continue;
        ++p;
        if (*p == L'%')
            continue;
        while (*p && std::wcschr(L"-+ #0", *p))
            ++p;
        while (*p >= L'0' && *p <= L'9')
            ++p;
        if (*p != L'd' && *p != L'i')
            return false;
        ++conversions;
    }
    return conversions == 1;
}

QString indexedColorName(int index)
{
    const KtString translated
        = ktutQStringToKtString(ktutResourceText(L"IDS_PROPERTIES_292", kColorIndexDefault));
    const wchar_t* format = translated.c_str();
    if (!format || !takesOneInt(format))
        format = kColorIndexDefault;
    KtString name;
    name.format(format, index);
    return ktutKtStringToQString(name);
}

} // namespace

KtPsTrueColorComboBox::KtPsTrueColorComboBox(QWidget* parent)
    : QComboBox(parent)
    , m_lastSelIndex(0)
{
    // The combo owns its delegate (see the destructor).
    setItemDelegate(new QStyledItemDelegate());
    setStyleSheet(
        QStringLiteral("QComboBox {combobox-popup: 0; background: rgb(225, 225, 225); color: black; } "
                       "QAbstractItemView::item {background: white; color: black; } "
                       "QAbstractItemView::item:selected {background: rgb(0, 120, 215); color: white; } "
                       "QAbstractItemView::item:hover { background: rgb(0, 120, 215); color: white; } "));
    initDefaultOptions();
}

KtPsTrueColorComboBox::~KtPsTrueColorComboBox()
{
    // QComboBox deletes a delegate when another replaces it, but never the last
    // one; the delegate has no parent, so it goes here, whoever installed it.
    delete itemDelegate();
}

void KtPsTrueColorComboBox::initDefaultOptions()
{
    addNormalOption(ktutResourceText(L"IDS_PLOTSTYLEOPTIONCMD_0", L"使用对象颜色"));
    addColorByColor(g_global_color[0], ktutResourceText(L"IDS_STRING_RED", L"红"));
    addColorByColor(g_global_color[1], ktutResourceText(L"IDS_STRING_YELLOW", L"黄"));
    addColorByColor(g_global_color[2], ktutResourceText(L"IDS_STRING_GREEN", L"绿"));
    addColorByColor(g_global_color[3], ktutResourceText(L"IDS_STRING_CYAN", L"青"));
    addColorByColor(g_global_color[4], ktutResourceText(L"IDS_STRING_BLUE", L"蓝"));
    addColorByColor(g_global_color[5], ktutResourceText(L"IDS_STRING_MATERIAL_0025", L"洋红"));
    addColorByColor(g_global_color[6], ktutResourceText(L"IDS_KTUI_KTUICOMBOBOX_PROMPT24", L"黑"));
    addChooseOption();
}

void KtPsTrueColorComboBox::addNormalOption(QString text)
{
    const TrueColorData data{QColor(Qt::black), text, kUseObject, -1};
    insertItem(count(), text, QVariant::fromValue(data));
}

void KtPsTrueColorComboBox::addColorByColor(QColor color, QString text)
{
    if (text.isEmpty())
        text = rgbText(color);
    const TrueColorData data{color, text, kFixedColor, -1};
    insertItem(count(), QIcon(swatch(color)), QStringLiteral("%1").arg(data.name), QVariant::fromValue(data));
}

void KtPsTrueColorComboBox::addChooseOption()
{
    QPixmap pixmap(12, 12);
    {
        QLinearGradient gradient(0, 0, 12, 0);
        gradient.setColorAt(0.2, Qt::gray);
        gradient.setColorAt(0.4, Qt::green);
        gradient.setColorAt(0.6, Qt::red);
        gradient.setColorAt(0.8, Qt::magenta);
        gradient.setColorAt(1.0, Qt::black);
        QPainter painter(&pixmap);
        painter.setBrush(gradient);
        painter.drawRect(0, 0, 12, 12);
    }
    const QString text = ktutResourceText(L"IDS_STRING_MATERIAL_0027", L"选择颜色...");
    const TrueColorData data{QColor(Qt::black), text, kChooseColor, -1};
    insertItem(count(), QIcon(pixmap), text, QVariant::fromValue(data));
}

void KtPsTrueColorComboBox::addSpecialColor(const TrueColorData& data)
{
    insertItem(count() - 1, QIcon(swatch(data.color)), QStringLiteral("%1").arg(data.name),
        QVariant::fromValue(data));
}

void KtPsTrueColorComboBox::showSpecialColor(QColor color, bool byIndex, int index)
{
    const int row = isColorExist(color);
    if (row >= 0) {
        setCurrentIndex(row);
        return;
    }
    const QString name = byIndex ? indexedColorName(index) : rgbText(color);
    addSpecialColor(TrueColorData{color, name, kSpecialColor, byIndex ? index : -1});
    setCurrentIndex(count() - 2);
}

int KtPsTrueColorComboBox::isColorExist(QColor color)
{
    if (count() < 3)
        return -1;
    // The first and the last entry never count, whatever they hold.
    for (int row = 1; row <= count() - 2; ++row) {
        if (itemData(row, Qt::UserRole).value<TrueColorData>().color == color)
            return row;
    }
    return -1;
}

bool KtPsTrueColorComboBox::isGlobalColor(QColor color)
{
    for (const QColor& global : g_global_color) {
        if (global == color)
            return true;
    }
    return false;
}

void KtPsTrueColorComboBox::getCurrentColorData(TrueColorData& data)
{
    const int row = currentIndex();
    if (row == 0) {
        data.kind = kUseObject;
        return;
    }
    if (row < 1 || row > count() - 2)
        return;
    const QVariant value = itemData(row, Qt::UserRole);
    if (value.userType() == qMetaTypeId<TrueColorData>())
        data = value.value<TrueColorData>();
}

void KtPsTrueColorComboBox::setCurrentIndex(int index)
{
    if (index < 0 || index >= count())
        return;
    QComboBox::setCurrentIndex(index);
    m_lastSelIndex = index;
}

int KtPsTrueColorComboBox::getLastSelIndex()
{
    return m_lastSelIndex;
}

void KtPsTrueColorComboBox::paintEvent(QPaintEvent* event)
{
    QComboBox::paintEvent(event);

    QPainter painter(this);
    const QRect face = rect();
    painter.eraseRect(QRectF(1.0, 1.0, face.right() - face.left() - 22, face.bottom() - face.top() - 2));

    const QVariant value = itemData(currentIndex(), Qt::UserRole);
    if (value.userType() == qMetaTypeId<TrueColorData>()) {
        const TrueColorData data = value.value<TrueColorData>();
        if (data.kind == kFixedColor || data.kind == kSpecialColor) {
            painter.setBrush(QBrush(data.color, Qt::SolidPattern));
            painter.drawRect(QRect(QPoint(7, 5), QPoint(18, 16)));
            painter.drawText(QPointF(24.0, 15.0), QStringLiteral("%1").arg(data.name));
        } else if (data.kind == kUseObject) {
            painter.drawText(QPointF(4.0, 15.0), data.name);
        }
    }
    painter.end();
    // Deliberate: every paint asks for the next one, so the face follows any
    // change of the current entry at once (at the price of painting all the time).
    update();
}

} // namespace TORV_PLOT_SPECIALLY_SPCAE
