#pragma once

#include "ktcmdqtutils_export.h"

#include <QComboBox>
#include <QVector>

namespace TORV_PLOT_SPECIALLY_SPCAE {

/**
 * @brief Combo box of line weights supplied by the caller.
 *
 * Empty until setLineWeightList(). Row 0 then means "use the object's line
 * weight"; row i shows a sample line of weight i - 1 and the weight in
 * millimetres or inches. The item data (Qt::UserRole, int) is the 1-based
 * position in the list, not the weight. Rebuilding the rows does not block
 * signals, so QComboBox reports the index changes as usual; re-select with
 * setCurrentLineWeight(), which emits nothing.
 *
 * @see @ref plotstyle
 */
class KTCMDQTUTILS_EXPORT KtPsLineWeightComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// No rows; millimetres; icons of 80 x 25.
    explicit KtPsLineWeightComboBox(QWidget* parent = nullptr);
    ~KtPsLineWeightComboBox() override;

    /// Stores a copy of @p list (weights in millimetres) and rebuilds the rows.
    void setLineWeightList(QVector<double>& list);
    /// A copy of the stored weights, in millimetres.
    QVector<double> getLineWeightList();
    /// Rebuilds all rows from the stored list.
    void refreshLineWeightList();
    /// Shows inches when @p inches is true, millimetres otherwise, and rebuilds the rows.
    void resetUnit(bool inches);
    /// Selects the row whose item data is @p position, with signals blocked; no match changes nothing.
    void setCurrentLineWeight(int position);
    /// The item data of @p row as a number: its 1-based position, 0 for row 0 or a row out of range.
    double getLineWeight(int row);
    /// Appends the row of @p weight millimetres with item data @p position.
    void drawPixLine(int position, double weight);

private:
    QVector<double> lineWeights;
    /// 1: millimetres, 0: inches.
    int unit;
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE
