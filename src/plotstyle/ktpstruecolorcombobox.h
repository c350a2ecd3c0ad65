#pragma once

#include "ktcmdqtutils_export.h"

#include <QColor>
#include <QComboBox>
#include <QMetaType>
#include <QString>

class QPaintEvent;

namespace TORV_PLOT_SPECIALLY_SPCAE {

/// One entry of KtPsTrueColorComboBox, kept as item data (Qt::UserRole).
struct TrueColorData
{
    /// The entry's colour (invalid by default).
    QColor color;
    /// The entry's text.
    QString name;
    /// 0 fixed colour, 1 "choose colour...", 2 "use the object's colour", 3 special colour.
    int kind = 0;
    /// The colour's index for a special colour named by index, else -1.
    int index = -1;
};

/// The seven fixed colours: red, yellow, green, cyan, blue, magenta, black.
extern KTCMDQTUTILS_EXPORT const QColor g_global_color[7];

/**
 * @brief Colour picker of a plot style.
 *
 * Entries: "use the object's colour", the seven colours of g_global_color,
 * any special colours added later (always just before the last entry), and
 * "choose colour..." last, which the dialog answers with its own colour
 * chooser through QComboBox's signals. The closed combo paints its own face:
 * a swatch and the name of the current entry.
 *
 * @see @ref plotstyle
 */
class KTCMDQTUTILS_EXPORT KtPsTrueColorComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// The style sheet and the nine default entries; the last selected index is 0.
    explicit KtPsTrueColorComboBox(QWidget* parent = nullptr);
    ~KtPsTrueColorComboBox() override;

    /// Appends the default entries (see the class description).
    void initDefaultOptions();
    /// Appends an entry without icon: {black, @p text, kind 2}.
    void addNormalOption(QString text);
    /// Appends a colour entry; an empty @p text becomes "r, g, b".
    void addColorByColor(QColor color, QString text);
    /// Appends the "choose colour..." entry with a gradient icon.
    void addChooseOption();
    /// Inserts @p data just before the last entry.
    void addSpecialColor(const TrueColorData& data);
    /**
     * Selects the entry of @p color. When there is none, adds a special entry
     * named by @p index (the formatted "colour %d" text) when @p byIndex is
     * true, else "r, g, b", and selects it.
     */
    void showSpecialColor(QColor color, bool byIndex, int index);
    /// The first of the rows 1 to count() - 2 holding @p color; -1 when none (or fewer than 3 rows).
    int isColorExist(QColor color);
    /// True when @p color is one of g_global_color.
    bool isGlobalColor(QColor color);
    /**
     * The current entry into @p data: row 0 sets only kind (2); a colour row
     * copies its record; no current row and the last row leave @p data as it was.
     */
    void getCurrentColorData(TrueColorData& data);
    /// Selects @p index when it is a row, and remembers it; anything else is ignored.
    void setCurrentIndex(int index);
    /// The index last selected through setCurrentIndex().
    int getLastSelIndex();

protected:
    /// Paints the face, then asks for another paint: the face repaints continuously.
    void paintEvent(QPaintEvent* event) override;

private:
    int m_lastSelIndex;
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE

Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::TrueColorData)
