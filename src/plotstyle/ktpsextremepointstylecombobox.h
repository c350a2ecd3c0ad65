#pragma once

#include "ktcmdqtutils_export.h"
#include "ktpsitemmaps.h"

#include <QComboBox>

namespace TORV_PLOT_SPECIALLY_SPCAE {

/**
 * @brief Combo box of the plot-style line end styles.
 *
 * Row 0 is "use the object's end style" (4) without a picture; rows 1 to 4
 * are butt, square, round and diamond (0 to 3) with tiles of
 * "plot/plotstyle_basestyle.bmp". Without that bitmap only row 0 is there.
 * Item data (Qt::UserRole): EndPointStyleMap.
 *
 * @see @ref plotstyle
 */
class KTCMDQTUTILS_EXPORT KtPsExtremePointStyleComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// Icons of 26 x 13; fills the rows with Initialize().
    explicit KtPsExtremePointStyleComboBox(QWidget* parent = nullptr);
    ~KtPsExtremePointStyleComboBox() override;

    /// Appends the rows; it does not clear, so a second call appends a second set.
    void Initialize();
    /**
     * Selects the first of rows 0 to 4 whose record carries @p style, with
     * signals blocked. A missing row reads as value 0: on a combo holding only
     * row 0, style 0 "selects" row 1 and leaves no current row.
     */
    void setCurrentExtremePointStyleIndex(KtPs::LineEndStyle style);
    /// The end style of @p row; 0 for a row without a record.
    KtPs::LineEndStyle getExtremePointStyle(int row);
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE
