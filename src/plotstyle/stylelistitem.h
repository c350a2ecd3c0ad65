#pragma once

#include "ktcmdqtutils_export.h"

#include <QColor>
#include <QString>
#include <QWidget>

class QPaintEvent;

namespace TORV_PLOT_SPECIALLY_SPCAE {

class KtPsStyleList;

/**
 * @brief One row of KtPsStyleList: a colour swatch and a name, 185 x 20.
 *
 * The row it stands for is fixed at creation. When that row is the list's
 * current row the item highlights itself (from x = 25, so never the swatch):
 * light grey when its own text colour is dark, dark blue when it is light.
 *
 * @see @ref plotstyle
 */
class KTCMDQTUTILS_EXPORT StyleListItem : public QWidget
{
    Q_OBJECT

public:
    /// A free-standing item: empty name, white swatch, no list, row -1.
    explicit StyleListItem(QWidget* parent = nullptr);
    /// An item of @p list for row @p index, without a parent (the list places it).
    StyleListItem(KtPsStyleList* list, QString name, QColor color, int index);
    ~StyleListItem() override;

    /// True when the item belongs to a list whose current row is its row.
    bool isSelected() const;
    /// "#rrggbb" in lower-case hexadecimal; the alpha is not written.
    QString convertRGBToHexColor(QColor color);

protected:
    /// Draws the highlight when selected, the 12 x 12 swatch at (11, 4) and the name.
    void paintEvent(QPaintEvent* event) override;

private:
    QString name;
    QColor color;
    int index;
    KtPsStyleList* list;
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE
