// Tests of CKtListCtrl: columns, both insert forms, text and data, the
// selected-only state, check boxes, POSITION walks, GetNextItem, geometry,
// repainting and drag images through the foundation-class API.

#include <CKtListCtrl>
#include <KtItemRole>

#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include <climits>
#include <functional>
#include <memory>
#include <string>

Q_DECLARE_METATYPE(QTableWidgetItem*)

namespace {

QPixmap solid(const QColor& color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return pixmap;
}

QColor iconColor(const QTableWidgetItem* item)
{
    return item->icon().pixmap(16, 16).toImage().pixelColor(8, 8);
}

QRect asRect(const tagRECT& r)
{
    return QRect(QPoint(r.left, r.top), QPoint(r.right, r.bottom)); // corners as written
}

// Column-0 texts, "-" for a cell without an item.
QStringList firstColumn(const QTableWidget& table)
{
    QStringList result;
    for (int row = 0; row < table.rowCount(); ++row)
        result << (table.item(row, 0) ? table.item(row, 0)->text() : QStringLiteral("-"));
    return result;
}

// Every cell that holds an item, as "row,column".
QStringList occupiedCells(const QTableWidget& table)
{
    QStringList result;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            if (table.item(row, column))
                result << QStringLiteral("%1,%2").arg(row).arg(column);
        }
    }
    return result;
}

QList<int> rowsOf(const QModelIndexList& indexes)
{
    QList<int> rows;
    for (const QModelIndex& index : indexes)
        rows << index.row();
    return rows;
}

// Rows of a whole POSITION walk.
QList<int> walk(const CKtListCtrl& list)
{
    QList<int> rows;
    for (POSITION pos = list.GetFirstSelectedItemPosition(); pos && rows.size() <= list.rowCount();)
        rows << list.GetNextSelectedItem(pos);
    return rows;
}

// Records the regions the viewport is asked to paint.
class PaintRecorder : public QObject
{
public:
    QList<QRegion> regions;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            regions << static_cast<QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class TestCKtListCtrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QTableWidgetItem*>(); }
    void init() { m_list = std::make_unique<CKtListCtrl>(nullptr); }
    void cleanup() { m_list.reset(); }

    void construction();
    void insertColumn_data();
    void insertColumn();
    void insertItem_data();
    void insertItem();
    void insertStructure_data();
    void insertStructure();
    void imageListAndIcons();
    void textAndData();
    void cellsOutsideTheTable_data();
    void cellsOutsideTheTable();
    void badRows_data();
    void badRows();
    void itemState();
    void checkBoxes();
    void positionWalk();
    void walkFollowsChanges_data();
    void walkFollowsChanges();
    void getNextItem();
    void signalsOfProgramChanges_data();
    void signalsOfProgramChanges();
    void deletion();
    void geometryOnScreen();
    void userClicks();
    void redrawItems();
    void dragImage();

private:
    // @p rows rows of @p columns columns, cell texts "r<row>c<column>".
    void fill(int rows, int columns);
    std::unique_ptr<CKtListCtrl> m_list;
};

void TestCKtListCtrl::fill(int rows, int columns)
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

void TestCKtListCtrl::construction()
{
    QWidget dialog;
    auto* list = new CKtListCtrl(&dialog);
    QCOMPARE(list->parentWidget(), &dialog); // unlike the tree, the parent is taken
    QCOMPARE(list->GetItemCount(), 0);
    QCOMPARE(list->columnCount(), 0);
    QTableWidget plain;
    QCOMPARE(list->selectionBehavior(), plain.selectionBehavior());
    QCOMPARE(list->selectionMode(), plain.selectionMode());
    QCOMPARE(list->horizontalHeader()->isVisible(), plain.horizontalHeader()->isVisible());
    QCOMPARE(list->GetFirstSelectedItemPosition(), nullptr);
}

void TestCKtListCtrl::insertColumn_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<QStringList>("headings");
    QTest::addColumn<int>("alignment");

    // Two columns "A" and "B" are there already.
    const int left = Qt::AlignLeft, right = Qt::AlignRight, centre = Qt::AlignHCenter | Qt::AlignVCenter;
    QTest::newRow("centred at 0, default width")
        << 0 << LVCFMT_CENTER << -1 << QStringList{"new", "A", "B"} << centre;
    QTest::newRow("right in the middle") << 1 << LVCFMT_RIGHT << 120 << QStringList{"A", "new", "B"} << right;
    QTest::newRow("left at the end") << 2 << LVCFMT_LEFT << 40 << QStringList{"A", "B", "new"} << left;
    QTest::newRow("unknown format is left") << 2 << 7 << 0 << QStringList{"A", "B", "new"} << left;
    QTest::newRow("past the end") << 5 << LVCFMT_LEFT << 50 << QStringList{"A", "B"} << -1;
    QTest::newRow("negative") << -1 << LVCFMT_RIGHT << 50 << QStringList{"A", "B"} << -1;
}

void TestCKtListCtrl::insertColumn()
{
    QFETCH(int, column);
    QFETCH(int, format);
    QFETCH(int, width);
    QFETCH(QStringList, headings);
    QFETCH(int, alignment);

    m_list->InsertColumn(0, L"A");
    m_list->InsertColumn(1, L"B", LVCFMT_LEFT, 77);
    const int defaultWidth = m_list->columnWidth(0);
    QCOMPARE(m_list->columnWidth(1), 77);

    QCOMPARE(
        m_list->InsertColumn(column, L"new", format, width, 3), column); // also when nothing was inserted
    QStringList got;
    for (int i = 0; i < m_list->columnCount(); ++i)
        got << m_list->horizontalHeaderItem(i)->text();
    QCOMPARE(got, headings);
    if (alignment < 0)
        return;
    const QTableWidgetItem* heading = m_list->horizontalHeaderItem(column);
    QCOMPARE(heading->data(Qt::TextAlignmentRole), QVariant(alignment));
    QCOMPARE(m_list->columnWidth(column), width == -1 ? defaultWidth : width);
    QCOMPARE(m_list->SetColumnWidth(column, 150), 1);
    QCOMPARE(m_list->columnWidth(column), 150);
}

void TestCKtListCtrl::insertItem_data()
{
    QTest::addColumn<bool>("checkBoxes");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("result");
    QTest::addColumn<QStringList>("rows");

    // Three rows "a", "b", "c" are there already; "-" is a row without a first cell.
    for (bool boxes : {false, true}) {
        auto row = [boxes](const char* name) {
            QTestData& data
                = QTest::newRow(qPrintable(QString::fromLatin1(name) + (boxes ? ", check boxes" : "")));
            data << boxes;
            return &data;
        };
        *row("-1 appends an empty row") << -1 << -1 << QStringList{"a", "b", "c", "-"};
        *row("at 0") << 0 << 0 << QStringList{"new", "a", "b", "c"};
        *row("at 1") << 1 << 1 << QStringList{"a", "new", "b", "c"};
        *row("at the end") << 3 << 3 << QStringList{"a", "b", "c", "new"};
        *row("past the end appends an empty row") << 4 << 3 << QStringList{"a", "b", "c", "-"};
        *row("far past the end") << INT_MAX << 3 << QStringList{"a", "b", "c", "-"};
        *row("-2 inserts nothing") << -2 << -2 << QStringList{"a", "b", "c"};
        *row("INT_MIN inserts nothing") << INT_MIN << INT_MIN << QStringList{"a", "b", "c"};
    }
}

void TestCKtListCtrl::insertItem()
{
    QFETCH(bool, checkBoxes);
    QFETCH(int, index);
    QFETCH(int, result);
    QFETCH(QStringList, rows);

    m_list->InsertColumn(0, L"Name");
    m_list->InsertColumn(1, L"Value");
    for (const wchar_t* text : {L"a", L"b", L"c"})
        m_list->InsertItem(m_list->GetItemCount(), text);
    if (checkBoxes)
        m_list->SetExtendedStyle(LVS_EX_CHECKBOXES);

    QCOMPARE(m_list->InsertItem(index, L"new"), result);
    QCOMPARE(firstColumn(*m_list), rows);
    QCOMPARE(occupiedCells(*m_list).size(), rows.size() - rows.count("-")); // nothing strayed into column 1
    // The placed item, and only that, gets an unchecked box.
    for (int row = 0; row < m_list->rowCount(); ++row) {
        const QTableWidgetItem* cell = m_list->item(row, 0);
        const bool boxed = checkBoxes && cell && cell->text() == QLatin1String("new");
        QCOMPARE(cell && cell->data(Qt::CheckStateRole).isValid(), boxed);
        if (boxed)
            QCOMPARE(cell->checkState(), Qt::Unchecked);
    }
}

void TestCKtListCtrl::insertStructure_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<int>("subItem");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("cell"); // where the new text went, empty for nowhere

    // Two rows of two columns are there already.
    QTest::newRow("past the end grows the table") << 5 << 0 << 5 << 6 << 2 << "5,0";
    QTest::newRow("at the top returns the last row") << 0 << 0 << 2 << 3 << 2 << "0,0";
    QTest::newRow("in the middle") << 1 << 0 << 2 << 3 << 2 << "1,0";
    QTest::newRow("at the end") << 2 << 0 << 2 << 3 << 2 << "2,0";
    QTest::newRow("sub-item still makes a row") << 1 << 1 << 2 << 3 << 2 << "1,1";
    QTest::newRow("sub-item adds columns") << 0 << 4 << 2 << 3 << 5 << "0,4";
    QTest::newRow("negative item") << -1 << 0 << 1 << 2 << 2 << "";
    QTest::newRow("negative sub-item") << 0 << -1 << 2 << 3 << 2 << "";
    QTest::newRow("INT_MAX item") << INT_MAX << 0 << 1 << 2 << 2 << "";
}

void TestCKtListCtrl::insertStructure()
{
    QFETCH(int, item);
    QFETCH(int, subItem);
    QFETCH(int, result);
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(QString, cell);

    fill(2, 2);
    const QStringList before = occupiedCells(*m_list);
    wchar_t text[] = L"结构 item";
    tagLVITEMW lv{};
    lv.mask = LVIF_PARAM | LVIF_STATE;
    lv.iItem = item;
    lv.iSubItem = subItem;
    lv.state = LVIS_SELECTED;
    lv.stateMask = LVIS_SELECTED;
    lv.pszText = text;
    lv.lParam = -2;

    QCOMPARE(m_list->InsertItem(&lv), result);
    QCOMPARE(m_list->rowCount(), rows);
    QCOMPARE(m_list->columnCount(), columns);
    QCOMPARE(occupiedCells(*m_list).size(), before.size() + (cell.isEmpty() ? 0 : 1));
    QCOMPARE(m_list->selectedItems().size(), 0); // state and stateMask are not read
    if (cell.isEmpty())
        return;
    const int row = cell.section(',', 0, 0).toInt(), column = cell.section(',', 1, 1).toInt();
    const QTableWidgetItem* placed = m_list->item(row, column);
    QVERIFY(placed);
    QCOMPARE(m_list->GetItemText(row, column), KtString(text));
    // lParam goes in as a signed value and reads back as unsigned.
    QCOMPARE(placed->data(KtItemRole::ItemData), QVariant(qlonglong(-2)));
    if (column == 0)
        QCOMPARE(m_list->GetItemData(row), ~1ull);
}

void TestCKtListCtrl::imageListAndIcons()
{
    m_list->InsertColumn(0, L"Name");
    m_list->InsertColumn(1, L"Size");
    QVERIFY(m_list->SetImageList(CKtImageList{solid(Qt::red), solid(Qt::blue)}, 0).isEmpty());
    QCOMPARE(m_list->SetImageList(m_list->GetImageList(0), 1).size(), 2); // the same list: unchanged
    QCOMPARE(m_list->GetImageList(5).size(), 2);

    auto insert = [this](int image, unsigned mask, int subItem = 0) {
        tagLVITEMW lv{};
        lv.mask = mask;
        lv.iItem = m_list->GetItemCount();
        lv.iSubItem = subItem;
        lv.iImage = image;
        return m_list->item(m_list->InsertItem(&lv), subItem);
    };
    // The image is taken whatever the mask says; out-of-range indices give no icon.
    QCOMPARE(iconColor(insert(1, 0)), QColor(Qt::blue));
    QCOMPARE(iconColor(insert(0, LVIF_IMAGE, 1)), QColor(Qt::red));
    for (int bad : {2, -1, INT_MIN})
        QVERIFY(insert(bad, LVIF_IMAGE)->icon().isNull());
    const QTableWidgetItem* red = insert(0, LVIF_IMAGE | LVIF_PARAM);
    QCOMPARE(m_list->GetItemData(m_list->GetItemCount() - 1), 0ull); // lParam 0 was stored
    QVERIFY(red->data(KtItemRole::ItemData).isValid());

    m_list->AppendItemImage(solid(Qt::green));
    QCOMPARE(iconColor(insert(2, 0)), QColor(Qt::green));
    m_list->ClearItemImageList();
    QVERIFY(m_list->GetImageList(0).isEmpty());
    QCOMPARE(iconColor(red), QColor(Qt::red)); // icons made earlier stay
    QVERIFY(insert(0, LVIF_IMAGE)->icon().isNull());
    // The image index is not kept anywhere.
    QVERIFY(!red->data(KtItemRole::Image).isValid());
}

void TestCKtListCtrl::textAndData()
{
    fill(2, 3);
    for (const QString& label : {QString(), QStringLiteral("Layer 0"), QStringLiteral("图层 🙂")}) {
        const std::wstring wide = label.toStdWString();
        QCOMPARE(m_list->SetItemText(1, 2, wide.c_str()), 1);
        QCOMPARE(m_list->item(1, 2)->text(), label);
        QCOMPARE(m_list->GetItemText(1, 2), KtString(wide.c_str()));
    }
    QCOMPARE(m_list->SetItemText(0, 1, nullptr), 1); // null text: empty
    QCOMPARE(m_list->item(0, 1)->text(), QString());

    // A cell without an item gets one; reading one gives an empty string.
    m_list->setItem(1, 1, nullptr);
    QCOMPARE(m_list->GetItemText(1, 1).length(), 0);
    QCOMPARE(m_list->SetItemText(1, 1, L"made"), 1);
    QCOMPARE(m_list->item(1, 1)->text(), QStringLiteral("made"));
    QCOMPARE(m_list->item(1, 1)->type(), int(QTableWidgetItem::Type));

    // Item data lives in the first cell as qulonglong.
    QCOMPARE(m_list->GetItemData(1), 0ull);
    QCOMPARE(m_list->SetItemData(1, ~0ull), 1);
    QCOMPARE(m_list->GetItemData(1), ~0ull);
    QCOMPARE(m_list->item(1, 0)->data(KtItemRole::ItemData).userType(), int(QMetaType::ULongLong));
    QVERIFY(!m_list->item(1, 1)->data(KtItemRole::ItemData).isValid());
    m_list->setItem(0, 0, nullptr);
    QCOMPARE(m_list->SetItemData(0, 5), 0);
    QCOMPARE(m_list->GetItemData(0), 0ull);
    QCOMPARE(m_list->GetItemText(0, 0).length(), 0);
}

void TestCKtListCtrl::cellsOutsideTheTable_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");

    // Qt's own setItem() would put (0, 3) of a 3-column table into row 1.
    QTest::newRow("column past the end") << 0 << 3;
    QTest::newRow("far column") << 1 << 1000;
    QTest::newRow("negative column") << 1 << -1;
    QTest::newRow("row past the end") << 2 << 0;
    QTest::newRow("negative row") << -1 << 2;
    QTest::newRow("both negative") << -1 << -1;
    QTest::newRow("extremes") << INT_MAX << INT_MIN;
}

void TestCKtListCtrl::cellsOutsideTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);

    fill(2, 3);
    m_list->setItem(1, 2, nullptr);
    m_list->setItem(1, 0, nullptr);
    const QStringList before = occupiedCells(*m_list);

    QCOMPARE(m_list->SetItemText(row, column, L"stray"), 1);
    QCOMPARE(m_list->GetItemText(row, column).length(), 0);
    QCOMPARE(occupiedCells(*m_list), before);
    QCOMPARE(m_list->columnCount(), 3);
}

void TestCKtListCtrl::badRows_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("-1") << -1;
    QTest::newRow("row count") << 3;
    QTest::newRow("far past the end") << 1000;
    QTest::newRow("INT_MIN") << INT_MIN;
    QTest::newRow("INT_MAX") << INT_MAX;
    QTest::newRow("row without a first cell") << 1;
}

void TestCKtListCtrl::badRows()
{
    QFETCH(int, row);

    fill(3, 2);
    m_list->setItem(1, 0, nullptr);
    m_list->resize(300, 200);
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
    const QStringList before = occupiedCells(*m_list);
    const bool exists = row >= 0 && row < m_list->rowCount();

    tagRECT rect{1, 2, 3, 4};
    QCOMPARE(m_list->GetItemRect(row, &rect, 0), 0);
    QCOMPARE(asRect(rect), QRect(QPoint(1, 2), QPoint(3, 4)));
    QCOMPARE(m_list->SetItemData(row, 9), 0);
    QCOMPARE(m_list->GetItemData(row), 0ull);
    QCOMPARE(m_list->GetItemText(row, 0).length(), 0);
    QCOMPARE(m_list->GetItemState(row, LVIS_SELECTED), 0u);
    QCOMPARE(m_list->SetCheck(row, 1), 1);
    QCOMPARE(m_list->GetCheck(row), 0);
    QCOMPARE(m_list->EnsureVisible(row, 0), 1);
    QCOMPARE(m_list->EditLabel(row), 1);
    QVERIFY(!m_list->viewport()->findChild<QLineEdit*>());
    QCOMPARE(m_list->RedrawItems(row, INT_MAX), 1);
    QCOMPARE(m_list->SetItemState(row, LVIS_SELECTED, LVIS_SELECTED), 1);
    QCOMPARE(occupiedCells(*m_list), before);
    QCOMPARE(m_list->GetItemRect(0, nullptr, 0), 0); // a null rectangle is refused too

    QCOMPARE(m_list->DeleteItem(row), 1);
    QCOMPARE(m_list->GetItemCount(), exists ? 2 : 3);
}

void TestCKtListCtrl::itemState()
{
    fill(4, 3);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);

    // One selected cell makes the row selected for GetItemState, not for the count.
    m_list->item(1, 2)->setSelected(true);
    QCOMPARE(m_list->GetItemState(1, LVIS_SELECTED), LVIS_SELECTED);
    QCOMPARE(m_list->GetItemState(1, LVIS_SELECTED | LVIS_FOCUSED | LVIS_CUT), LVIS_SELECTED);
    QCOMPARE(m_list->GetItemState(1, LVIS_FOCUSED | LVIS_STATEIMAGEMASK), 0u);
    QCOMPARE(m_list->GetItemState(0, LVIS_SELECTED), 0u);
    QCOMPARE(m_list->GetSelectedCount(), 0);
    // A selected cell without an item does not count.
    m_list->setItem(1, 2, nullptr);
    m_list->selectionModel()->select(m_list->model()->index(1, 2), QItemSelectionModel::Select);
    QCOMPARE(m_list->GetItemState(1, LVIS_SELECTED), 0u);

    // Selection behaviour decides between selecting the row and moving the current cell.
    m_list->clearSelection();
    QCOMPARE(m_list->SetItemState(2, LVIS_SELECTED, LVIS_SELECTED), 1);
    QCOMPARE(m_list->currentRow(), 2);
    QCOMPARE(m_list->currentColumn(), 0);
    QCOMPARE(m_list->GetSelectedCount(), 0);
    QCOMPARE(m_list->GetItemState(2, LVIS_SELECTED), LVIS_SELECTED);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    QCOMPARE(m_list->SetItemState(3, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED), 1);
    QCOMPARE(m_list->GetSelectedCount(), 1);
    QCOMPARE(m_list->GetItemState(3, LVIS_SELECTED), LVIS_SELECTED);

    // Nothing is ever deselected, and both state and mask must hold the bit.
    const std::pair<unsigned, unsigned> ignored[]
        = {{0u, LVIS_SELECTED}, {LVIS_SELECTED, LVIS_FOCUSED}, {LVIS_FOCUSED, 0xFFFFu}};
    for (auto [state, mask] : ignored) {
        QCOMPARE(m_list->SetItemState(3, state, mask), 1);
        QCOMPARE(m_list->SetItemState(0, state, mask), 1);
        QCOMPARE(m_list->GetItemState(3, LVIS_SELECTED), LVIS_SELECTED);
        QCOMPARE(m_list->GetItemState(0, LVIS_SELECTED), 0u);
    }
}

void TestCKtListCtrl::checkBoxes()
{
    m_list->InsertColumn(0, L"Layer");
    m_list->InsertItem(0, L"before");
    QCOMPARE(m_list->SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT), 1);
    m_list->InsertItem(1, L"still none");
    QCOMPARE(m_list->SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_GRIDLINES), 1);
    QCOMPARE(m_list->SetExtendedStyle(0), 1); // cannot be switched off
    m_list->InsertItem(2, L"boxed");
    for (int row : {0, 1})
        QVERIFY(!m_list->item(row, 0)->data(Qt::CheckStateRole).isValid());
    QCOMPARE(m_list->item(2, 0)->checkState(), Qt::Unchecked);
    QVERIFY(m_list->item(2, 0)->flags() & Qt::ItemIsUserCheckable);

    QCOMPARE(m_list->SetCheck(0, 5), 1);
    QCOMPARE(m_list->GetCheck(0), 1);
    QCOMPARE(m_list->item(0, 0)->data(Qt::CheckStateRole), QVariant(int(Qt::Checked)));
    QCOMPARE(m_list->SetCheck(0), 1); // checks by default
    QCOMPARE(m_list->SetCheck(0, 0), 1);
    QCOMPARE(m_list->GetCheck(0), 0);
    // The check state is read straight from the cell: a click's change is seen.
    m_list->item(2, 0)->setCheckState(Qt::Checked);
    QCOMPARE(m_list->GetCheck(2), 1);
    m_list->item(2, 0)->setCheckState(Qt::PartiallyChecked);
    QCOMPARE(m_list->GetCheck(2), 0);
    // A row without a first cell takes nothing.
    m_list->InsertItem(-1, L"lost");
    QCOMPARE(m_list->SetCheck(3, 1), 1);
    QCOMPARE(m_list->GetCheck(3), 0);
    QCOMPARE(m_list->item(3, 0), nullptr);
}

void TestCKtListCtrl::positionWalk()
{
    fill(8, 3);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QCOMPARE(m_list->GetFirstSelectedItemPosition(), nullptr);
    QCOMPARE(m_list->GetSelectedCount(), 0);

    // Rows come in the order they were selected, not sorted; a partly selected row is left out.
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (int row : {5, 1, 3})
        m_list->selectionModel()->select(
            m_list->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    m_list->item(6, 1)->setSelected(true);
    QCOMPARE(m_list->GetSelectedCount(), 3);
    POSITION pos = m_list->GetFirstSelectedItemPosition();
    QCOMPARE(pos, reinterpret_cast<POSITION>(1));
    QCOMPARE(m_list->GetNextSelectedItem(pos), 5);
    QCOMPARE(pos, reinterpret_cast<POSITION>(2));
    QCOMPARE(m_list->GetNextSelectedItem(pos), 1);
    QCOMPARE(m_list->GetNextSelectedItem(pos), 3);
    QCOMPARE(pos, nullptr);
    QCOMPARE(m_list->GetNextSelectedItem(pos), -1); // null: nothing more

    pos = reinterpret_cast<POSITION>(4); // past the end
    QCOMPARE(m_list->GetNextSelectedItem(pos), 0);
    QCOMPARE(pos, nullptr);
    pos = reinterpret_cast<POSITION>(3); // a position can be made up
    QCOMPARE(m_list->GetNextSelectedItem(pos), 3);
    QCOMPARE(pos, nullptr);

    // A new walk sees the selection as it is, even one changed without a signal.
    m_list->selectionModel()->blockSignals(true);
    m_list->selectionModel()->select(
        m_list->model()->index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    m_list->selectionModel()->blockSignals(false);
    QCOMPARE(walk(*m_list), (QList<int>{5, 1, 3, 0}));
}

void TestCKtListCtrl::walkFollowsChanges_data()
{
    QTest::addColumn<QString>("change");

    for (const char* change : {"nothing", "select another row", "add a row to the selection",
             "clear the selection", "delete a selected row", "delete a row above", "insert a row above",
             "insert an empty row above", "insert a last column", "remove a column", "sort",
             "make a row unselectable", "edit the rows", "delete all rows", "clear", "new selection model"})
        QTest::newRow(change) << QString::fromLatin1(change);
}

void TestCKtListCtrl::walkFollowsChanges()
{
    // The selected rows are those of the moment of each call, whatever happened
    // since the walk began.
    QFETCH(QString, change);

    fill(8, 3);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    QItemSelectionModel* selection = m_list->selectionModel();
    for (int row : {5, 1, 3, 6})
        selection->select(
            m_list->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);

    POSITION pos = m_list->GetFirstSelectedItemPosition();
    QCOMPARE(m_list->GetNextSelectedItem(pos), 5);

    const QHash<QString, std::function<void()>> changes{
        {"nothing", [] {}},
        {"select another row", [&] { m_list->selectRow(7); }},
        {"add a row to the selection",
            [&] {
                selection->select(
                    m_list->model()->index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
            }},
        {"clear the selection", [&] { m_list->clearSelection(); }},
        {"delete a selected row", [&] { m_list->DeleteItem(1); }},
        {"delete a row above", [&] { m_list->DeleteItem(0); }},
        {"insert a row above", [&] { m_list->InsertItem(0, L"top"); }},
        {"insert an empty row above", [&] { m_list->insertRow(0); }},
        {"insert a last column", [&] { m_list->InsertColumn(3, L"late"); }},
        {"remove a column", [&] { m_list->removeColumn(2); }},
        {"sort", [&] { m_list->sortItems(0, Qt::DescendingOrder); }},
        {"make a row unselectable",
            [&] {
                for (int column = 0; column < 3; ++column)
                    m_list->item(3, column)->setFlags(Qt::ItemIsEnabled);
            }},
        {"edit the rows",
            [&] {
                for (int row = 0; row < 8; ++row) {
                    m_list->SetItemText(row, 1, L"edited");
                    m_list->SetCheck(row, 1);
                    m_list->SetItemData(row, row);
                }
            }},
        {"delete all rows", [&] { m_list->DeleteAllItems(); }},
        {"clear", [&] { m_list->clear(); }},
        {"new selection model",
            [&] {
                auto* fresh = new QItemSelectionModel(m_list->model(), m_list.get());
                fresh->select(
                    m_list->model()->index(2, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
                m_list->setSelectionModel(fresh);
            }},
    };
    changes.value(change)();

    // The walk goes on at position 2 of the list as it is now; past its end it gives 0 once.
    const QList<int> expected = rowsOf(m_list->selectionModel()->selectedRows(0));
    QList<int> rest;
    while (pos && rest.size() <= expected.size())
        rest << m_list->GetNextSelectedItem(pos);
    QCOMPARE(rest, expected.size() >= 2 ? expected.mid(1) : QList<int>{0});
    QCOMPARE(m_list->GetSelectedCount(), expected.size());
    QCOMPARE(walk(*m_list), expected);
}

void TestCKtListCtrl::getNextItem()
{
    fill(6, 3);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QCOMPARE(m_list->GetNextItem(-1, LVNI_SELECTED), -1);

    m_list->item(2, 1)->setSelected(true); // one cell is enough
    QCOMPARE(m_list->GetNextItem(-1, LVNI_SELECTED), 2);
    QCOMPARE(m_list->GetNextItem(2, LVNI_SELECTED), -1); // no other row
    QCOMPARE(m_list->GetNextItem(5, LVNI_SELECTED | LVNI_FOCUSED), 2);
    for (int flags : {int(LVNI_ALL), int(LVNI_FOCUSED), 0x0100, 0x0C00})
        QCOMPARE(m_list->GetNextItem(-1, flags), -1);

    // Another selected row, not the next one: a loop until -1 never ends.
    m_list->item(4, 0)->setSelected(true);
    const int first = m_list->GetNextItem(-1, LVNI_SELECTED);
    const int second = m_list->GetNextItem(first, LVNI_SELECTED);
    QCOMPARE(QSet<int>({first, second}), QSet<int>({2, 4}));
    QCOMPARE(m_list->GetNextItem(second, LVNI_SELECTED), first);
    QCOMPARE(m_list->GetNextItem(first, LVNI_SELECTED), second);

    // Cells without an item and cells in hidden columns are passed over, as selectedItems() does.
    m_list->item(2, 1)->setSelected(false);
    m_list->selectionModel()->select(m_list->model()->index(1, 0), QItemSelectionModel::Select);
    m_list->setItem(1, 0, nullptr);
    m_list->selectionModel()->select(m_list->model()->index(1, 0), QItemSelectionModel::Select);
    m_list->item(3, 2)->setSelected(true);
    m_list->setColumnHidden(2, true);
    QCOMPARE(m_list->GetNextItem(-1, LVNI_SELECTED), 4);
    QCOMPARE(m_list->GetNextItem(4, LVNI_SELECTED), -1);
}

void TestCKtListCtrl::signalsOfProgramChanges_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("itemChanged");
    QTest::addColumn<int>("selectionChanged");
    QTest::addColumn<int>("currentChanged");

    // Row 1 of three is selected and current. Removals run with signals blocked; the rest do not.
    QTest::newRow("DeleteItem of the current row") << "DeleteItem" << 0 << 0 << 0;
    QTest::newRow("DeleteItem while blocked") << "DeleteItem blocked" << 0 << 0 << 0;
    QTest::newRow("DeleteAllItems") << "DeleteAllItems" << 0 << 0 << 0;
    QTest::newRow("SetItemText") << "SetItemText" << 1 << 0 << 0;
    QTest::newRow("SetItemText on a new cell") << "SetItemText new" << 1 << 0 << 0;
    QTest::newRow("SetItemData") << "SetItemData" << 1 << 0 << 0;
    QTest::newRow("SetCheck") << "SetCheck" << 1 << 0 << 0;
    QTest::newRow("InsertItem") << "InsertItem" << 1 << 0 << 0;
    QTest::newRow("InsertItem with a structure") << "InsertItem structure" << 1 << 0 << 0;
    QTest::newRow("SetItemState selects") << "SetItemState" << 0 << 1 << 1;
    QTest::newRow("SetItemState without the bit") << "SetItemState 0" << 0 << 0 << 0;
}

void TestCKtListCtrl::signalsOfProgramChanges()
{
    QFETCH(QString, operation);
    QFETCH(int, itemChanged);
    QFETCH(int, selectionChanged);
    QFETCH(int, currentChanged);

    fill(3, 2);
    m_list->setItem(2, 1, nullptr);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setCurrentCell(1, 0);
    QCOMPARE(m_list->GetSelectedCount(), 1);

    QSignalSpy items(m_list.get(), &QTableWidget::itemChanged);
    QSignalSpy selection(m_list.get(), &QTableWidget::itemSelectionChanged);
    QSignalSpy current(m_list.get(), &QTableWidget::currentCellChanged);
    tagLVITEMW lv{};
    lv.iItem = 3;
    const QHash<QString, std::function<int()>> operations{
        {"DeleteItem", [&] { return m_list->DeleteItem(1); }},
        {"DeleteItem blocked",
            [&] {
                m_list->blockSignals(true); // unblocked afterwards, not restored
                return m_list->DeleteItem(0);
            }},
        {"DeleteAllItems", [&] { return m_list->DeleteAllItems(); }},
        {"SetItemText", [&] { return m_list->SetItemText(0, 1, L"x"); }},
        {"SetItemText new", [&] { return m_list->SetItemText(2, 1, L"x"); }},
        {"SetItemData", [&] { return m_list->SetItemData(0, 7); }},
        {"SetCheck", [&] { return m_list->SetCheck(0, 1); }},
        {"InsertItem", [&] { return int(m_list->InsertItem(3, L"x") == 3); }},
        {"InsertItem structure", [&] { return int(m_list->InsertItem(&lv) == 3); }},
        {"SetItemState", [&] { return m_list->SetItemState(2, LVIS_SELECTED, LVIS_SELECTED); }},
        {"SetItemState 0", [&] { return m_list->SetItemState(2, 0, LVIS_SELECTED); }},
    };
    QCOMPARE(operations.value(operation)(), 1);
    QVERIFY(!m_list->signalsBlocked());
    QCOMPARE(items.count(), itemChanged);
    QCOMPARE(selection.count(), selectionChanged);
    QCOMPARE(current.count(), currentChanged);
}

void TestCKtListCtrl::deletion()
{
    fill(5, 3);
    m_list->horizontalHeaderItem(1)->setText(QStringLiteral("kept"));
    QCOMPARE(m_list->DeleteItem(1), 1);
    QCOMPARE(firstColumn(*m_list), (QStringList{"r0c0", "r2c0", "r3c0", "r4c0"}));
    QCOMPARE(m_list->GetItemText(1, 2), KtString(L"r2c2"));

    // The rows go, the columns and their headings stay; the table takes new rows as before.
    QCOMPARE(m_list->DeleteAllItems(), 1);
    QCOMPARE(m_list->GetItemCount(), 0);
    QCOMPARE(m_list->columnCount(), 3);
    QCOMPARE(m_list->horizontalHeaderItem(1)->text(), QStringLiteral("kept"));
    QCOMPARE(m_list->DeleteAllItems(), 1);
    QCOMPARE(m_list->InsertItem(0, L"again"), 0);
    QCOMPARE(m_list->GetItemCount(), 1);
}

void TestCKtListCtrl::geometryOnScreen()
{
    fill(40, 3);
    m_list->setItem(3, 0, nullptr);
    m_list->resize(320, 200);
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));

    // The rectangle is that of the first cell, whatever code is asked for.
    const QRect cell = m_list->visualItemRect(m_list->item(2, 0));
    QVERIFY(cell.isValid());
    for (unsigned code : {0u, 1u, 2u, 3u}) {
        tagRECT rect{};
        QCOMPARE(m_list->GetItemRect(2, &rect, code), 1);
        QCOMPARE(asRect(rect), QRect(cell.topLeft(), cell.bottomRight() + QPoint(1, 1)));
    }
    tagRECT rect{};
    QCOMPARE(m_list->GetItemRect(3, &rect, 0), 0); // no first cell

    unsigned flags = 0xABCD;
    const QRect second = m_list->visualItemRect(m_list->item(2, 1));
    QCOMPARE(m_list->HitTest(second.center(), &flags), 2); // any column gives the row
    QCOMPARE(m_list->HitTest(CPoint(cell.center().x(), cell.center().y()), nullptr), 2);
    QCOMPARE(flags, 0xABCDu); // not written
    QCOMPARE(m_list->HitTest(m_list->visualRect(m_list->model()->index(3, 0)).center(), &flags), -1);
    const QRect lastColumn = m_list->visualItemRect(m_list->item(0, 2));
    QCOMPARE(m_list->HitTest(QPoint(lastColumn.right() + 10, lastColumn.center().y()), &flags), -1);

    // A row far below the viewport is scrolled into view; then its rectangle lies inside it.
    QVERIFY(!m_list->viewport()->rect().contains(m_list->visualItemRect(m_list->item(35, 0))));
    QCOMPARE(m_list->EnsureVisible(35, 0), 1);
    QVERIFY(m_list->viewport()->rect().contains(m_list->visualItemRect(m_list->item(35, 0))));
    QCOMPARE(m_list->GetItemRect(35, &rect, 0), 1);
    QCOMPARE(m_list->HitTest(asRect(rect).center(), nullptr), 35);

    // EditLabel opens the editor of the first cell.
    QCOMPARE(m_list->EditLabel(35), 1);
    QLineEdit* editor = nullptr;
    QTRY_VERIFY((editor = m_list->viewport()->findChild<QLineEdit*>()));
    QCOMPARE(editor->text(), QStringLiteral("r35c0"));
}

void TestCKtListCtrl::userClicks()
{
    // Signals from the user's own actions reach slots; the walk sees the rows clicked.
    fill(6, 2);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->resize(300, 260);
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
    QSignalSpy selection(m_list.get(), &QTableWidget::itemSelectionChanged);
    QSignalSpy changed(m_list.get(), &QTableWidget::itemChanged);

    auto centreOf
        = [this](int row, int column) { return m_list->visualItemRect(m_list->item(row, column)).center(); };
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, centreOf(4, 1));
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf(1, 0));
    QCOMPARE(selection.count(), 2);
    QCOMPARE(walk(*m_list), (QList<int>{4, 1}));
    QCOMPARE(m_list->GetSelectedCount(), 2);

    // A click on a check box changes the state GetCheck reads and is announced.
    m_list->SetCheck(2, 0);
    changed.clear();
    QStyleOptionViewItem option;
    option.initFrom(m_list.get());
    option.rect = m_list->visualItemRect(m_list->item(2, 0));
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    const QRect box
        = m_list->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, m_list.get());
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, box.center());
    QCOMPARE(m_list->GetCheck(2), 1);
    QCOMPARE(changed.count(), 1);
}

void TestCKtListCtrl::redrawItems()
{
    fill(6, 2);
    m_list->setItem(3, 0, nullptr);
    m_list->resize(300, 260);
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
    QCoreApplication::processEvents();
    PaintRecorder recorder;
    m_list->viewport()->installEventFilter(&recorder);
    auto firstCell = [this](int row) { return m_list->visualItemRect(m_list->item(row, 0)); };

    // Synchronous: the paint has happened when the call returns, without the event loop.
    QCOMPARE(m_list->RedrawItems(2, 2), 1);
    QVERIFY(recorder.regions.isEmpty());
    QCOMPARE(m_list->RedrawItems(1, 3), 1);
    QCOMPARE(recorder.regions.size(), 1);
    QCOMPARE(recorder.regions.last(), QRegion(firstCell(1)) + firstCell(2)); // the end is excluded
    // Rows without a first cell and rows outside the table add nothing.
    QCOMPARE(m_list->RedrawItems(-10, 5), 1);
    QCOMPARE(recorder.regions.last(), QRegion(firstCell(0)) + firstCell(1) + firstCell(2) + firstCell(4));
    QCOMPARE(m_list->RedrawItems(5, INT_MAX), 1);
    QCOMPARE(recorder.regions.last(), QRegion(firstCell(5)));
    const int paints = recorder.regions.size();
    QCOMPARE(m_list->RedrawItems(3, 4), 1);
    QCOMPARE(m_list->RedrawItems(INT_MIN, 0), 1);
    QCOMPARE(recorder.regions.size(), paints);
}

void TestCKtListCtrl::dragImage()
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QSKIP("the offscreen platform crops screen grabs to the window");
    fill(4, 2);
    m_list->resize(300, 200);
    m_list->move(40, 40);
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));

    tagPOINT point{-7, -7};
    const QPixmap image = m_list->CreateDragImage(2, &point);
    QVERIFY(!image.isNull());
    QCOMPARE(image.size() / image.devicePixelRatio(), m_list->visualItemRect(m_list->item(2, 0)).size());
    QCOMPARE(point.x, -7); // not written
    QCOMPARE(point.y, -7);
    // A row without a first cell has an empty rectangle: nothing worth grabbing.
    const QPixmap none = m_list->CreateDragImage(9, nullptr);
    QVERIFY(none.isNull() || none.width() * none.height() <= 1);
}

QTEST_MAIN(TestCKtListCtrl)
#include "tst_cktlistctrl.moc"
