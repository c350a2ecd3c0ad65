// Tests of CKtListCtrl: columns, both insert forms, text and data, the
// selected-only state, check boxes, POSITION walks, GetNextItem, geometry,
// repainting and drag images through the foundation-class API.

#include "imagelistchecks.h"

#include <CKtListCtrl>
#include <KtItemRole>

#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include <climits>
#include <functional>
#include <memory>
#include <string>

using Operation = std::function<int(CKtListCtrl&)>;
Q_DECLARE_METATYPE(QTableWidgetItem*)
Q_DECLARE_METATYPE(Operation)

namespace {

QRect asRect(const tagRECT& r)
{
    return QRect(QPoint(r.left, r.top), QPoint(r.right, r.bottom)); // corners as written
}

tagLVITEMW lvItem(unsigned mask, int item, int subItem = 0, int image = 0)
{
    tagLVITEMW lv{};
    lv.mask = mask;
    lv.iItem = item;
    lv.iSubItem = subItem;
    lv.iImage = image;
    return lv;
}

// The table row by row, cells joined by "|": "-" for a cell without an item, else its
// text, then "[ ]" or "[x]" for a check box, "#" and the item data, "*" when selected.
QStringList cells(const QTableWidget& table)
{
    QStringList rows;
    for (int row = 0; row < table.rowCount(); ++row) {
        QStringList line;
        for (int column = 0; column < table.columnCount(); ++column) {
            const QTableWidgetItem* item = table.item(row, column);
            QString cell = item ? item->text() : QStringLiteral("-");
            if (item && item->data(Qt::CheckStateRole).isValid())
                cell += item->checkState() == Qt::Checked ? "[x]" : "[ ]";
            if (item && item->data(KtItemRole::ItemData).isValid())
                cell += "#" + item->data(KtItemRole::ItemData).toString();
            line << cell + (item && item->isSelected() ? "*" : "");
        }
        rows << line.join('|');
    }
    return rows;
}

void selectRows(CKtListCtrl& list, std::initializer_list<int> rows)
{
    for (int row : rows)
        list.selectionModel()->select(
            list.model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

QList<int> walk(const CKtListCtrl& list)
{
    QList<int> rows;
    for (POSITION pos = list.GetFirstSelectedItemPosition(); pos && rows.size() <= list.rowCount();)
        rows << list.GetNextSelectedItem(pos);
    return rows;
}

} // namespace

class TestCKtListCtrl : public QObject
{
    Q_OBJECT

    std::unique_ptr<CKtListCtrl> m_list;
    QList<QRegion> m_painted; // regions the viewport was asked to paint

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            m_painted << static_cast<QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }

    // @p rows rows of @p columns columns, cell texts "r<row>c<column>".
    void fill(int rows, int columns)
    {
        for (int column = 0; column < columns; ++column)
            m_list->InsertColumn(column, QStringLiteral("Column %1").arg(column).toStdWString().c_str());
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                const std::wstring text = QStringLiteral("r%1c%2").arg(row).arg(column).toStdWString();
                if (column == 0)
                    QCOMPARE(m_list->InsertItem(row, text.c_str()), row);
                else
                    m_list->SetItemText(row, column, text.c_str());
            }
        }
    }

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QTableWidgetItem*>(); }
    void init() { m_list = std::make_unique<CKtListCtrl>(nullptr); }
    void cleanup() { m_list.reset(); }

    void insertColumn()
    {
        m_list->InsertColumn(0, L"A");
        const int defaultWidth = m_list->columnWidth(0);
        QCOMPARE(m_list->InsertColumn(0, L"C", LVCFMT_CENTER), 0);
        QCOMPARE(m_list->InsertColumn(1, L"R", LVCFMT_RIGHT, 120), 1);
        QCOMPARE(m_list->InsertColumn(3, L"U", 7, 0, 3), 3); // an unknown format is left
        // Past the end and negative insert nothing, yet the index comes back.
        QCOMPARE(m_list->InsertColumn(5, L"X", LVCFMT_LEFT, 50), 5);
        QCOMPARE(m_list->InsertColumn(-1, L"X", LVCFMT_RIGHT, 50), -1);
        QStringList headings;
        QVariantList alignments;
        QList<int> widths;
        for (int i = 0; i < m_list->columnCount(); ++i) {
            headings << m_list->horizontalHeaderItem(i)->text();
            alignments << m_list->horizontalHeaderItem(i)->data(Qt::TextAlignmentRole);
            widths << m_list->columnWidth(i);
        }
        QCOMPARE(headings, (QStringList{"C", "R", "A", "U"}));
        const int left = Qt::AlignLeft, right = Qt::AlignRight, centre = Qt::AlignHCenter | Qt::AlignVCenter;
        QCOMPARE(alignments, (QVariantList{centre, right, left, left}));
        QCOMPARE(widths, (QList<int>{defaultWidth, 120, defaultWidth, 0}));
    }

    void insertItem_data()
    {
        QTest::addColumn<bool>("structure"); // the tagLVITEMW form, with lParam -2 and LVIS_SELECTED
        QTest::addColumn<bool>("checkBoxes");
        QTest::addColumn<int>("item");
        QTest::addColumn<int>("subItem");
        QTest::addColumn<int>("result");
        QTest::addColumn<QStringList>("table");

        // Three rows "a", "b", "c" of two columns are there already. The text form puts its
        // text in the caller's row; the structure form always makes a row and returns the last.
        const QStringList abc{"a|-", "b|-", "c|-"}, empty{"-|-"};
        // clang-format off
        QTest::newRow("-1 appends an empty row, boxes") << false << true << -1 << 0 << -1 << abc + empty;
        QTest::newRow("at the end, boxes") << false << true << 3 << 0 << 3 << abc + QStringList{"new[ ]|-"};
        QTest::newRow("INT_MAX appends an empty row") << false << false << INT_MAX << 0 << 3 << abc + empty;
        QTest::newRow("INT_MIN inserts nothing") << false << false << INT_MIN << 0 << INT_MIN << abc;
        QTest::newRow("structure past the end grows the table") << true << false << 5 << 0 << 5 << abc + empty + empty + QStringList{"new#-2|-"};
        QTest::newRow("structure at the top, boxes") << true << true << 0 << 0 << 3 << QStringList{"new[ ]#-2|-"} + abc;
        QTest::newRow("structure sub-item makes a row and columns, no box") << true << true << 0 << 3 << 3 << QStringList{"-|-|-|new#-2", "a|-|-|-", "b|-|-|-", "c|-|-|-"};
        QTest::newRow("structure negative item") << true << false << -1 << 0 << 2 << abc;
        QTest::newRow("structure negative sub-item") << true << false << 0 << -1 << 3 << empty + abc;
        // A table Qt cannot hold is refused whole.
        QTest::newRow("structure item INT_MAX") << true << false << INT_MAX << 0 << -1 << abc;
        // clang-format on
    }

    void insertItem()
    {
        QFETCH(bool, structure);
        QFETCH(bool, checkBoxes);
        QFETCH(int, item);
        QFETCH(int, subItem);
        QFETCH(int, result);
        QFETCH(QStringList, table);

        fill(0, 2);
        for (const wchar_t* text : {L"a", L"b", L"c"})
            m_list->InsertItem(m_list->GetItemCount(), text);
        // Only LVS_EX_CHECKBOXES counts, and once on it cannot be switched off.
        QCOMPARE(m_list->SetExtendedStyle(LVS_EX_GRIDLINES | (checkBoxes ? LVS_EX_CHECKBOXES : 0u)), 1);
        QCOMPARE(m_list->SetExtendedStyle(0), 1);
        wchar_t text[] = L"new";
        tagLVITEMW lv = lvItem(LVIF_PARAM | LVIF_STATE, item, subItem);
        lv.state = lv.stateMask = LVIS_SELECTED;
        lv.pszText = text;
        lv.lParam = -2;

        QCOMPARE(structure ? m_list->InsertItem(&lv) : m_list->InsertItem(item, text), result);
        QCOMPARE(cells(*m_list), table);
    }

    void imageList()
    {
        // The image is taken whatever the mask says.
        fill(0, 2);
        checkImageList(*m_list, [this](int image) {
            tagLVITEMW lv = lvItem(0, m_list->GetItemCount(), 0, image);
            const int row = m_list->InsertItem(&lv);
            return IconOf([this, row] { return m_list->item(row, 0)->icon(); });
        });
        m_list->SetImageList(CKtImageList{solid(Qt::red)}, 0);
        tagLVITEMW sub = lvItem(LVIF_IMAGE, m_list->GetItemCount(), 1);
        QCOMPARE(iconColor(m_list->item(m_list->InsertItem(&sub), 1)->icon()), QColor(Qt::red));
    }

    void textDataAndDeletion()
    {
        fill(2, 3);
        m_list->setItem(1, 1, nullptr);
        // Null text is empty; a cell without an item gets one; item data and the check state live
        // in the first cell, which takes a check state without a check box.
        QCOMPARE(m_list->SetItemText(0, 1, nullptr) + m_list->SetItemText(1, 1, L"made"), 2);
        QCOMPARE(m_list->SetItemText(1, 2, L"图层 🙂") + m_list->SetItemData(1, ~0ull), 2);
        QCOMPARE(m_list->SetCheck(0, 5) + m_list->SetCheck(1), 2); // checks by default
        QCOMPARE(m_list->GetCheck(0), 1);
        QCOMPARE(m_list->SetCheck(1, 0), 1);
        QCOMPARE(
            cells(*m_list), (QStringList{"r0c0[x]||r0c2", "r1c0[ ]#18446744073709551615|made|图层 🙂"}));
        m_list->item(0, 0)->setCheckState(Qt::PartiallyChecked); // read straight from the cell
        QCOMPARE(m_list->GetCheck(0), 0);
        // lParam goes in as a signed value and reads back as unsigned.
        tagLVITEMW lv = lvItem(LVIF_PARAM, 0);
        lv.lParam = -2;
        m_list->InsertItem(&lv);
        QCOMPARE(m_list->GetItemData(0), ~1ull);

        // The rows go, the columns and their headings stay; the table takes new rows as before.
        m_list->horizontalHeaderItem(1)->setText(QStringLiteral("kept"));
        QCOMPARE(m_list->DeleteItem(1), 1);
        QCOMPARE(m_list->GetItemText(1, 1), KtString(L"made"));
        QCOMPARE(m_list->DeleteAllItems() + m_list->DeleteAllItems(), 2);
        QCOMPARE(m_list->horizontalHeaderItem(1)->text(), QStringLiteral("kept"));
        QCOMPARE(m_list->InsertItem(0, L"again"), 0);
        QCOMPARE(cells(*m_list), QStringList{"again|-|-"});
    }

    void selectedCells()
    {
        fill(6, 3);
        // One selected cell makes the row selected for GetItemState and GetNextItem, not for the count.
        m_list->item(2, 1)->setSelected(true);
        QCOMPARE(m_list->GetItemState(2, LVIS_SELECTED | LVIS_FOCUSED | LVIS_CUT), LVIS_SELECTED);
        QCOMPARE(m_list->GetItemState(2, LVIS_FOCUSED), 0u);
        QCOMPARE(m_list->GetSelectedCount(), 0);
        QCOMPARE(m_list->GetNextItem(2, LVNI_SELECTED), -1); // no other row
        QCOMPARE(m_list->GetNextItem(5, LVNI_SELECTED | LVNI_FOCUSED), 2);
        QCOMPARE(m_list->GetNextItem(-1, LVNI_ALL), -1);

        // Another selected row, not the next one: a loop until -1 never ends.
        m_list->item(4, 0)->setSelected(true);
        const int first = m_list->GetNextItem(-1, LVNI_SELECTED);
        const int second = m_list->GetNextItem(first, LVNI_SELECTED);
        QCOMPARE(QSet<int>({first, second}), QSet<int>({2, 4}));
        QCOMPARE(m_list->GetNextItem(second, LVNI_SELECTED), first);

        // A selected cell without an item does not count; GetNextItem also passes over hidden
        // columns, as selectedItems() does.
        m_list->item(2, 1)->setSelected(false);
        m_list->setItem(1, 0, nullptr);
        m_list->selectionModel()->select(m_list->model()->index(1, 0), QItemSelectionModel::Select);
        m_list->item(3, 2)->setSelected(true);
        m_list->setColumnHidden(2, true);
        QCOMPARE(m_list->GetItemState(1, LVIS_SELECTED), 0u);
        QCOMPARE(m_list->GetNextItem(-1, LVNI_SELECTED), 4);
        QCOMPARE(m_list->GetNextItem(4, LVNI_SELECTED), -1);

        // Selection behaviour decides between selecting the row and moving the current cell.
        m_list->clearSelection();
        m_list->setColumnHidden(2, false);
        QCOMPARE(m_list->SetItemState(2, LVIS_SELECTED, LVIS_SELECTED), 1);
        QCOMPARE(QPoint(m_list->currentColumn(), m_list->currentRow()), QPoint(0, 2));
        QCOMPARE(m_list->GetSelectedCount(), 0);
        m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
        QCOMPARE(m_list->SetItemState(3, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED), 1);
        QCOMPARE(m_list->GetSelectedCount(), 1);

        // Nothing is ever deselected, and both state and mask must hold the bit.
        const std::pair<unsigned, unsigned> ignored[] = {{0u, LVIS_SELECTED}, {LVIS_SELECTED, LVIS_FOCUSED}};
        for (auto [state, mask] : ignored) {
            QCOMPARE(m_list->SetItemState(3, state, mask) + m_list->SetItemState(0, state, mask), 2);
            QCOMPARE(m_list->GetItemState(3, LVIS_SELECTED), LVIS_SELECTED);
            QCOMPARE(m_list->GetItemState(0, LVIS_SELECTED), 0u);
        }

        // A POSITION walk gives the rows in the order they were selected. A new walk sees the
        // selection as it is, even one changed without a signal.
        selectRows(*m_list, {5, 1});
        QCOMPARE(walk(*m_list), (QList<int>{3, 5, 1}));
        m_list->selectionModel()->blockSignals(true);
        selectRows(*m_list, {0});
        m_list->selectionModel()->blockSignals(false);
        QCOMPARE(walk(*m_list), (QList<int>{3, 5, 1, 0}));
    }

    void programChanges_data()
    {
        QTest::addColumn<int>("itemChanged"); // -1: Qt's own call, signals not counted
        QTest::addColumn<int>("selectionChanged");
        QTest::addColumn<Operation>("operation");

        // Removals run with signals blocked; the other calls of the class do not. Each row
        // also stands for one kind of notice that can change the selected rows.
        auto add = [](const char* name, int items, int selection, Operation operation) {
            QTest::newRow(name) << items << selection << operation;
        };
        auto qt = [](const char* name, std::function<void(CKtListCtrl&)> change) {
            QTest::newRow(name) << -1 << -1 << Operation([change](CKtListCtrl& l) { return change(l), 1; });
        };
        // clang-format off
        add("nothing", 0, 0, [](CKtListCtrl&) { return 1; });
        add("DeleteItem of the current row", 0, 0, [](CKtListCtrl& l) { return l.DeleteItem(1); });
        // Blocking is switched off afterwards, not restored.
        add("DeleteItem while blocked", 0, 0, [](CKtListCtrl& l) { l.blockSignals(true); return l.DeleteItem(0); });
        add("DeleteAllItems", 0, 0, [](CKtListCtrl& l) { return l.DeleteAllItems(); });
        add("SetItemText", 1, 0, [](CKtListCtrl& l) { return l.SetItemText(0, 1, L"x"); });
        add("SetItemText on a new cell", 1, 0, [](CKtListCtrl& l) { return l.SetItemText(2, 1, L"x"); });
        add("InsertItem with a structure", 1, 0, [](CKtListCtrl& l) { tagLVITEMW lv = lvItem(0, 8); return int(l.InsertItem(&lv) == 8); });
        add("SetItemState selects", 0, 1, [](CKtListCtrl& l) { return l.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED); });
        qt("add a row to the selection", [](CKtListCtrl& l) { selectRows(l, {0}); });
        qt("insert a last column", [](CKtListCtrl& l) { l.InsertColumn(3, L"late"); });
        qt("remove a column", [](CKtListCtrl& l) { l.removeColumn(2); });
        qt("sort", [](CKtListCtrl& l) { l.sortItems(0, Qt::DescendingOrder); });
        qt("make a row unselectable", [](CKtListCtrl& l) { for (int column = 0; column < 3; ++column) l.item(3, column)->setFlags(Qt::ItemIsEnabled); });
        qt("clear", [](CKtListCtrl& l) { l.clear(); });
        qt("new selection model", [](CKtListCtrl& l) {
            auto* fresh = new QItemSelectionModel(l.model(), &l);
            fresh->select(l.model()->index(2, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
            l.setSelectionModel(fresh);
        });
        // clang-format on
    }

    void programChanges()
    {
        QFETCH(int, itemChanged);
        QFETCH(int, selectionChanged);
        QFETCH(Operation, operation);

        // Rows 5, 1, 3 and 6 are selected in that order, row 7 in part; row 1 is current.
        fill(8, 3);
        m_list->setItem(2, 1, nullptr);
        m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
        selectRows(*m_list, {5, 1, 3, 6});
        m_list->item(7, 1)->setSelected(true);
        m_list->selectionModel()->setCurrentIndex(
            m_list->model()->index(1, 0), QItemSelectionModel::NoUpdate);
        POSITION pos = m_list->GetFirstSelectedItemPosition();
        QCOMPARE(m_list->GetNextSelectedItem(pos), 5);

        QSignalSpy items(m_list.get(), &QTableWidget::itemChanged);
        QSignalSpy selection(m_list.get(), &QTableWidget::itemSelectionChanged);
        QCOMPARE(operation(*m_list), 1);
        QVERIFY(!m_list->signalsBlocked());
        if (itemChanged >= 0) {
            QCOMPARE(items.count(), itemChanged);
            QCOMPARE(selection.count(), selectionChanged);
        }

        // The walk goes on at position 2 of the rows selected now, whatever happened since it
        // began; past their end it gives 0 once.
        QList<int> expected, rest;
        for (const QModelIndex& index : m_list->selectionModel()->selectedRows(0))
            expected << index.row();
        while (pos && rest.size() <= expected.size())
            rest << m_list->GetNextSelectedItem(pos);
        QCOMPARE(rest, expected.size() >= 2 ? expected.mid(1) : QList<int>{0});
        QCOMPARE(m_list->GetSelectedCount(), expected.size());
        QCOMPARE(m_list->GetFirstSelectedItemPosition(),
            expected.isEmpty() ? nullptr : reinterpret_cast<POSITION>(1));
        // A POSITION is a 1-based index and can be made up; null gives -1.
        const quintptr count = quintptr(expected.size());
        for (quintptr i = 1; i <= count + 1; ++i) {
            pos = reinterpret_cast<POSITION>(i);
            QCOMPARE(m_list->GetNextSelectedItem(pos), i <= count ? expected.at(int(i) - 1) : 0);
            QCOMPARE(pos, i < count ? reinterpret_cast<POSITION>(i + 1) : nullptr);
        }
        QCOMPARE(m_list->GetNextSelectedItem(pos), -1);
    }

    void onScreen()
    {
        m_list->move(40, 40);
        fill(40, 3);
        m_list->resize(320, 260);
        m_list->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
        m_list->setItem(3, 0, nullptr);
        QCoreApplication::processEvents();
        auto firstCell = [this](int row) { return m_list->visualItemRect(m_list->item(row, 0)); };

        // Cells outside the table or without an item, and rows without a first cell. Qt's own
        // setItem() would put (3, 3) into row 4.
        const QStringList before = cells(*m_list);
        for (auto [row, column] : {std::pair{3, 3}, {3, -1}, {40, 0}, {INT_MIN, INT_MAX}}) {
            QCOMPARE(m_list->SetItemText(row, column, L"stray"), 1);
            QCOMPARE(m_list->GetItemText(row, column).length(), 0);
            tagRECT rect{1, 2, 3, 4};
            QCOMPARE(m_list->GetItemRect(row, &rect, 0), 0);
            QCOMPARE(asRect(rect), QRect(QPoint(1, 2), QPoint(3, 4)));
            QCOMPARE(m_list->SetItemData(row, 9), 0);
            QCOMPARE(m_list->GetItemData(row), 0ull);
            QCOMPARE(m_list->GetItemState(row, LVIS_SELECTED), 0u);
            QCOMPARE(m_list->SetCheck(row, 1), 1);
            QCOMPARE(m_list->GetCheck(row), 0);
            QCOMPARE(m_list->EnsureVisible(row, 0), 1);
            QCOMPARE(m_list->EditLabel(row), 1);
            QVERIFY(!m_list->viewport()->findChild<QLineEdit*>());
            QCOMPARE(m_list->RedrawItems(row, INT_MAX), 1);
            QCOMPARE(m_list->SetItemState(row, LVIS_SELECTED, LVIS_SELECTED), 1);
            QCOMPARE(cells(*m_list), before);
        }
        QCOMPARE(m_list->DeleteItem(40) + m_list->DeleteItem(INT_MIN), 2);
        QCOMPARE(m_list->GetItemCount(), 40);

        // The rectangle is that of the first cell, whatever code is asked for.
        const QRect cell = firstCell(2);
        tagRECT rect{};
        QCOMPARE(m_list->GetItemRect(2, &rect, 2), 1);
        QCOMPARE(asRect(rect), QRect(cell.topLeft(), cell.bottomRight() + QPoint(1, 1)));
        QCOMPARE(m_list->GetItemRect(0, nullptr, 0), 0); // a null rectangle is refused

        unsigned flags = 0xABCD;
        const QRect second = m_list->visualItemRect(m_list->item(2, 1));
        QCOMPARE(m_list->HitTest(second.center(), &flags), 2); // any column gives the row
        QCOMPARE(m_list->HitTest(CPoint(cell.center().x(), cell.center().y()), nullptr), 2);
        QCOMPARE(flags, 0xABCDu); // not written
        QCOMPARE(m_list->HitTest(m_list->visualRect(m_list->model()->index(3, 0)).center(), &flags), -1);
        const QRect lastColumn = m_list->visualItemRect(m_list->item(0, 2));
        QCOMPARE(m_list->HitTest(QPoint(lastColumn.right() + 10, lastColumn.center().y()), &flags), -1);

        // Synchronous: the paint has happened when the call returns, without the event loop.
        m_painted.clear();
        m_list->viewport()->installEventFilter(this);
        QCOMPARE(m_list->RedrawItems(2, 2), 1);
        QVERIFY(m_painted.isEmpty());
        QCOMPARE(m_list->RedrawItems(1, 3), 1);
        QCOMPARE(m_painted.size(), 1);
        QCOMPARE(m_painted.last(), QRegion(firstCell(1)) + firstCell(2)); // the end is excluded
        // Rows without a first cell, rows outside the table and rows out of view add nothing.
        QCOMPARE(m_list->RedrawItems(-10, 5), 1);
        QCOMPARE(m_painted.last(), QRegion(firstCell(0)) + firstCell(1) + firstCell(2) + firstCell(4));
        QCOMPARE(m_list->RedrawItems(5, INT_MAX), 1);
        QRegion below;
        for (int row = 5; row < 40; ++row)
            below += firstCell(row);
        QCOMPARE(m_painted.last(), below & m_list->viewport()->rect());
        const int paints = m_painted.size();
        QCOMPARE(m_list->RedrawItems(3, 4) + m_list->RedrawItems(INT_MIN, 0), 2);
        QCOMPARE(m_painted.size(), paints);

        if (QGuiApplication::platformName() != QLatin1String("offscreen")) { // it crops grabs to the window
            tagPOINT point{-7, -7};
            const QPixmap image = m_list->CreateDragImage(2, &point);
            QCOMPARE(image.size() / image.devicePixelRatio(), cell.size());
            QCOMPARE(QPoint(point.x, point.y), QPoint(-7, -7)); // not written
            // A row without a first cell has an empty rectangle: nothing worth grabbing.
            const QPixmap none = m_list->CreateDragImage(3, nullptr);
            QVERIFY(none.isNull() || none.width() * none.height() <= 1);
        }

        // A row far below the viewport is scrolled into view; then its rectangle lies inside it.
        QVERIFY(!m_list->viewport()->rect().contains(firstCell(35)));
        QCOMPARE(m_list->EnsureVisible(35, 0), 1);
        QVERIFY(m_list->viewport()->rect().contains(firstCell(35)));
        QCOMPARE(m_list->GetItemRect(35, &rect, 0), 1);
        QCOMPARE(m_list->HitTest(asRect(rect).center(), nullptr), 35);
        QCOMPARE(m_list->EditLabel(35), 1);
        QLineEdit* editor = nullptr;
        QTRY_VERIFY((editor = m_list->viewport()->findChild<QLineEdit*>()));
        QCOMPARE(editor->text(), QStringLiteral("r35c0"));
    }
};

QTEST_MAIN(TestCKtListCtrl)
#include "tst_cktlistctrl.moc"
