#pragma once

#include "ktcmdqtutils_export.h"
#include "ktpsitemmaps.h"

#include <QComboBox>

class QPixmap;

namespace TORV_PLOT_SPECIALLY_SPCAE {

/**
 * The 32 line types in combo row order: "use the object's line type" (31)
 * first, then 0 to 30. Built when the library is loaded, with the texts of
 * the language service in force at that moment, and never changed.
 */
extern KTCMDQTUTILS_EXPORT const LineTypeMap g_global_LineTypeName[32];

/**
 * @brief Combo box of the plot-style line types, each with its dash pattern.
 *
 * Row 0 is "use the object's line type" (value 31, no picture); rows 1 to 31
 * carry the values 0 to 30 with a pattern drawn by createLineType(). Each
 * row's item data (Qt::UserRole) is its LineTypeMap.
 *
 * @see @ref plotstyle
 */
class KTCMDQTUTILS_EXPORT KtPsLineTypeComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// Builds all 32 rows; icons are 80 x 20.
    explicit KtPsLineTypeComboBox(QWidget* parent = nullptr);
    ~KtPsLineTypeComboBox() override;

    /**
     * Selects the first of the 32 rows whose record carries @p type, with
     * signals blocked (nothing is emitted). An unknown value changes nothing.
     */
    void setCurrentLineTypeIndex(KtPs::LineType type);
    /// The line type of row @p row (normally currentIndex()); 0 for a row without a record.
    KtPs::LineType getCurrentLineType(int row);

    /**
     * Draws the dash pattern of @p lineType into @p pixmap with the painter's
     * default pen, along y = height / 2, repeating from x = 0 and clipped at
     * the right. Several line types share one picture; 31 and values out of
     * range draw nothing.
     */
    void createLineType(QPixmap& pixmap, int lineType, int width, int height);
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE
