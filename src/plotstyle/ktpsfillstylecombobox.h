#pragma once

#include "ktcmdqtutils_export.h"
#include "ktpsitemmaps.h"

#include <QComboBox>

namespace TORV_PLOT_SPECIALLY_SPCAE {

/**
 * @brief Combo box of the plot-style fill styles.
 *
 * Row 0 is "use the object's fill style" (73) without a picture; rows 1 to 9
 * are the fills 64 to 72 with tiles of "plot/plotstyle_fillstyle.bmp". Without
 * that bitmap only row 0 is there. Item data (Qt::UserRole): FillStyleMap.
 *
 * @see @ref plotstyle
 */
class KTCMDQTUTILS_EXPORT KtPsFillStyleComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// Icons of 26 x 13; fills the rows with Initialize().
    explicit KtPsFillStyleComboBox(QWidget* parent = nullptr);
    ~KtPsFillStyleComboBox() override;

    /// Appends the rows; it does not clear, so a second call appends a second set.
    void Initialize();
    /**
     * Selects the first of rows 0 to 9 whose record carries @p style, with
     * signals blocked. A missing row reads as value 0.
     */
    void setCurrentFillStyleIndex(KtPs::FillStyle style);
    /// The fill style of @p row; 0 for a row without a record. (The name is the host's.)
    KtPs::FillStyle getCurrentFileStyle(int row);
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE
