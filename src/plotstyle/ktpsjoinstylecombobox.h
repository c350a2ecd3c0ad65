#pragma once

#include "ktcmdqtutils_export.h"
#include "ktpsitemmaps.h"

#include <QComboBox>

namespace TORV_PLOT_SPECIALLY_SPCAE {

/**
 * @brief Combo box of the plot-style line join styles.
 *
 * Row 0 is "use the object's join style" (5) without a picture; rows 1 to 4
 * are miter, bevel, round and diamond (0 to 3) with tiles of
 * "plot/plotstyle_connectstyle.bmp". Without that bitmap only row 0 is there.
 * Item data (Qt::UserRole): JoinStyleMap.
 *
 * @see @ref plotstyle
 */
class KTCMDQTUTILS_EXPORT KtPsJoinStyleComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// Icons of 26 x 13; fills the rows with Initialize().
    explicit KtPsJoinStyleComboBox(QWidget* parent = nullptr);
    ~KtPsJoinStyleComboBox() override;

    /// Appends the rows; it does not clear, so a second call appends a second set.
    void Initialize();
    /**
     * Selects the first of rows 0 to 4 whose record carries @p style, with
     * signals blocked. A missing row reads as value 0.
     */
    void setCurrentJoinStyleIndex(KtPs::LineJoinStyle style);
    /// The join style of @p row; 0 for a row without a record.
    KtPs::LineJoinStyle getCurrentJoinStyle(int row);
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE
