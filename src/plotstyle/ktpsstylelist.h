#pragma once

#include "ktcmdqtutils_export.h"

#include <QColor>
#include <QListWidget>
#include <QString>
#include <QVector>

class CJxPlotStyle;
class QContextMenuEvent;

namespace TORV_PLOT_SPECIALLY_SPCAE {

/// One plot style of a style table as KtPsStyleList keeps it.
struct PlotStyleList
{
    /// The style's name as shown.
    QString name;
    /// The swatch colour.
    QColor color;
    /// The host's plot style object; not owned, never dereferenced by the list.
    CJxPlotStyle* style = nullptr;
    /// Set when the style is renamed or marked modified.
    bool modified = false;
};

/**
 * @brief The plot styles of a style table, one row each: swatch and name.
 *
 * The list keeps its own records; inserting, removing, renaming and marking
 * change only the records, and the rows show them after refreshStyleList().
 * Each row is a StyleListItem widget. A right click is reported through
 * itemMenuRequest(); the owner shows the menu.
 *
 * @see @ref plotstyle
 */
class KTCMDQTUTILS_EXPORT KtPsStyleList : public QListWidget
{
    Q_OBJECT

public:
    /// An empty list without records.
    explicit KtPsStyleList(QWidget* parent = nullptr);
    /// Drops the records; the host's plot style objects are not touched.
    ~KtPsStyleList() override;

    /// Inserts a record before @p index (the size appends); other indexes are ignored.
    void insertStyleData(int index, QString name, QColor color, CJxPlotStyle* style);
    /// Removes record @p index; an index out of range is ignored.
    void removeStyleData(int index);
    /// Marks record @p index modified. @p style is ignored: the stored pointer stays.
    void modifyStyleData(int index, CJxPlotStyle* style);
    /// Removes all records.
    void clearStyleDataList();
    /**
     * Sets @p style to the object of record @p index. Indexes that are negative
     * or 255 and above leave @p style untouched, as do indexes past the records.
     */
    void getStyleData(int index, CJxPlotStyle*& style);
    /// Renames record @p index and marks it modified; an index out of range is ignored.
    void renameStyle(int index, QString name);
    /// A copy of the records.
    QVector<PlotStyleList> getStyleDataList();
    /// Rebuilds every row from the records, emitting no signals.
    void refreshStyleList();
    /// Appends a row for record @p index (the row is always added at the end).
    void insertNewItem(int index, QColor color, QString name);

Q_SIGNALS:
    /// A right click, on a row (@p bOnItem true) or on the empty area.
    void itemMenuRequest(bool bOnItem);

protected:
    /// Reports the click at the cursor's current position through itemMenuRequest().
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QVector<PlotStyleList> styles;
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE
