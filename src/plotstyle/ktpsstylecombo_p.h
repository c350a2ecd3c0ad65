#pragma once

// Shared by the plot-style combo boxes: the rows of the fill, join and line-end
// combos come from one table layout and one bitmap-strip layout, and every
// combo selects by value the same way.

#include "ktresourcetext.h"
#include "ktsignalblock_p.h"

#include <QComboBox>
#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <QRect>
#include <QVariant>
#include <ktutimagepath.h>

#include <array>
#include <cstddef>

namespace TORV_PLOT_SPECIALLY_SPCAE {
namespace detail {

/// One row of a style combo's table: resource key, built-in text, value.
struct StyleRow
{
    const wchar_t* key;
    const wchar_t* defaultText;
    int value;
};

/// Tiles of the plot bitmap strips: 26 x 13, stacked vertically, tile 0 unused.
inline QPixmap stripTile(const QPixmap& strip, int k)
{
    return strip.copy(QRect(0, 13 * k, 26, 13));
}

/**
 * Appends the rows of @p table: row 0 without an icon, then, when the strip
 * @p image exists, row r with tile r. The records are built afresh on every
 * call, so the texts follow the language service in force now.
 */
template <class Map, std::size_t N>
void appendStyleRows(QComboBox* combo, const std::array<StyleRow, N>& table, const QString& image)
{
    using Value = decltype(Map::value);
    std::array<Map, N> records;
    for (std::size_t r = 0; r < N; ++r)
        records[r] = Map{ktutResourceText(table[r].key, table[r].defaultText), Value(table[r].value)};

    combo->addItem(QIcon(), records[0].name, QVariant::fromValue(records[0]));

    const QString path = ktutGetImageFullPath(image, true);
    if (!QFile::exists(path))
        return;
    const QPixmap strip(path);
    for (std::size_t r = 1; r < N; ++r)
        combo->addItem(QIcon(stripTile(strip, int(r))), records[r].name, QVariant::fromValue(records[r]));
}

/// The value in the record of @p row; 0 when the row has no such record.
template <class Map>
int recordValue(const QComboBox* combo, int row)
{
    return int(combo->itemData(row, Qt::UserRole).template value<Map>().value);
}

/// Makes @p row current with the combo's signals blocked, then unblocked.
inline void selectRowSilently(QComboBox* combo, int row)
{
    const KtBlockThenUnblock blocker(combo);
    combo->setCurrentIndex(row);
}

/**
 * Selects the first of the rows 0 .. @p rowsToScan - 1 whose record carries
 * @p value. The count is fixed by the caller, not count(): a missing row reads
 * as value 0 and is "found" too, which leaves a short combo without a current row.
 */
template <class Map>
void selectByValue(QComboBox* combo, int value, int rowsToScan)
{
    for (int row = 0; row < rowsToScan; ++row) {
        if (recordValue<Map>(combo, row) == value) {
            selectRowSilently(combo, row);
            return;
        }
    }
}

} // namespace detail
} // namespace TORV_PLOT_SPECIALLY_SPCAE
