// Tests of CKtTreeCtrl: insertion, item values, state bits, navigation,
// expansion, check boxes and deletion through the foundation-class API.

#include <CKtTreeCtrl>
#include <KtItemRole>

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(QTreeWidgetItem*)

namespace {

QPixmap solid(const QColor& color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return pixmap;
}

QColor iconColor(const QIcon& icon, QIcon::Mode mode)
{
    return icon.pixmap(16, 16, mode, QIcon::Off).toImage().pixelColor(8, 8);
}

QString text(const KtString& s)
{
    return QString::fromUtf8(s.utf8Ptr());
}

QStringList topLevelTexts(const QTreeWidget& tree)
{
    QStringList texts;
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        texts << tree.topLevelItem(i)->text(0);
    return texts;
}

QStringList childTexts(const QTreeWidgetItem* parent)
{
    QStringList texts;
    for (int i = 0; i < parent->childCount(); ++i)
        texts << parent->child(i)->text(0);
    return texts;
}

unsigned int stored(const QTreeWidgetItem* item)
{
    return item->data(0, KtItemRole::State).toUInt();
}

} // namespace

class TestCKtTreeCtrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void construction();
    void imageList();
    void clearedImageListKeepsIcons();
    void insertPlacement_data();
    void insertPlacement();
    void insertImages_data();
    void insertImages();
    void insertStructure();
    void checkBoxMode();
    void itemsAreIndependent();
    void textAndData_data();
    void textAndData();
    void setItemImage_data();
    void setItemImage();
    void setItemState_data();
    void setItemState();
    void setItemStateEmitsNothing();
    void stateImageMask_data();
    void stateImageMask();
    void siblingCheckSummary_data();
    void siblingCheckSummary();
    void navigation();
    void getNextItem_data();
    void getNextItem();
    void siblingWalkAfterEdits();
    void counts();
    void geometry();
    void selection();
    void dropTargetAndEditLabel();
    void expand_data();
    void expand();
    void expandAllChild();
    void expandWithSlotsEditingTheTree();
    void expandAllAndCollapseAll();
    void checks();
    void deletion();
    void dragImage();
    void nullHandles();

private:
    std::unique_ptr<CKtTreeCtrl> m_tree;
};

void TestCKtTreeCtrl::initTestCase()
{
    qRegisterMetaType<QTreeWidgetItem*>();
}

void TestCKtTreeCtrl::init()
{
    m_tree = std::make_unique<CKtTreeCtrl>(nullptr);
}

void TestCKtTreeCtrl::cleanup()
{
    m_tree.reset();
}

void TestCKtTreeCtrl::construction()
{
    QWidget dialog;
    CKtTreeCtrl tree(&dialog);
    QCOMPARE(tree.parentWidget(), nullptr); // the parent argument is not passed on
    QVERIFY(tree.isHeaderHidden());
    QVERIFY(tree.header()->isHidden());
    QCOMPARE(tree.GetCheckBoxes(), 0);
    QCOMPARE(tree.GetFirstVisibleItem(), nullptr);
    QVERIFY(tree.GetImageList(0).isEmpty());
}

void TestCKtTreeCtrl::imageList()
{
    const CKtImageList first{solid(Qt::red), solid(Qt::green)};
    QVERIFY(m_tree->SetImageList(first, 0).isEmpty());
    QCOMPARE(m_tree->GetImageList(7).size(), 2); // the list number is ignored

    // Installing the installed list returns it and changes nothing.
    const CKtImageList installed = m_tree->GetImageList(0);
    QCOMPARE(m_tree->SetImageList(installed, 1).size(), 2);
    QCOMPARE(m_tree->GetImageList(0).size(), 2);

    const CKtImageList previous = m_tree->SetImageList(CKtImageList{solid(Qt::blue)}, 0);
    QCOMPARE(previous.size(), 2);
    QCOMPARE(previous.at(1).toImage().pixelColor(0, 0), QColor(Qt::green));

    m_tree->AppendItemImage(solid(Qt::yellow));
    QCOMPARE(m_tree->GetImageList(0).size(), 2);
    m_tree->ClearItemImageList();
    QVERIFY(m_tree->GetImageList(0).isEmpty());
}

void TestCKtTreeCtrl::clearedImageListKeepsIcons()
{
    QTreeWidgetItem* none = m_tree->InsertItem(L"no list yet");
    m_tree->AppendItemImage(solid(Qt::red));
    QTreeWidgetItem* before = m_tree->InsertItem(L"before");
    m_tree->SetImageList(CKtImageList{solid(Qt::blue)}, 0);
    QCOMPARE(iconColor(before->icon(0), QIcon::Normal), QColor(Qt::red)); // icons are not rebuilt
    m_tree->ClearItemImageList();
    QTreeWidgetItem* after = m_tree->InsertItem(L"after");

    QCOMPARE(iconColor(before->icon(0), QIcon::Normal), QColor(Qt::red));
    QVERIFY(after->icon(0).isNull());
    QVERIFY(none->icon(0).isNull());
    for (QTreeWidgetItem* item : {none, before, after}) {
        int image = 9, selected = 9;
        QCOMPARE(m_tree->GetItemImage(item, image, selected), 1);
        QCOMPARE(image, 0);
        QCOMPARE(selected, 0);
    }
    // Absent roles read as 0 on an item the control did not make.
    auto* foreign = new QTreeWidgetItem(m_tree.get(), QStringList{"plain"});
    int image = 9, selected = 9;
    QCOMPARE(m_tree->GetItemImage(foreign, image, selected), 1);
    QCOMPARE(image, 0);
    QCOMPARE(selected, 0);
}

void TestCKtTreeCtrl::insertPlacement_data()
{
    // A parent "P" with children c0, c1, c2 and top-level items P and T.
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QStringList>("topLevel");
    QTest::addColumn<QStringList>("children");

    const QStringList top{"P", "T"};
    const QStringList kids{"c0", "c1", "c2"};
    QTest::newRow("root, no after") << ""
                                    << "" << QStringList{"P", "T", "new"} << kids;
    QTest::newRow("root ignores after") << ""
                                        << "c0" << QStringList{"P", "T", "new"} << kids;
    QTest::newRow("after first child") << "P"
                                       << "c0" << top << QStringList{"c0", "new", "c1", "c2"};
    QTest::newRow("after middle child") << "P"
                                        << "c1" << top << QStringList{"c0", "c1", "new", "c2"};
    QTest::newRow("after last child") << "P"
                                      << "c2" << top << QStringList{"c0", "c1", "c2", "new"};
    QTest::newRow("no after") << "P"
                              << "" << top << QStringList{"c0", "c1", "c2", "new"};
    QTest::newRow("after a non-child") << "P"
                                       << "T" << top << QStringList{"c0", "c1", "c2", "new"};
    QTest::newRow("after the parent") << "P"
                                      << "P" << top << QStringList{"c0", "c1", "c2", "new"};
    QTest::newRow("TVI_FIRST") << "P"
                               << "TVI_FIRST" << top << QStringList{"c0", "c1", "c2", "new"};
    QTest::newRow("TVI_LAST") << "P"
                              << "TVI_LAST" << top << QStringList{"c0", "c1", "c2", "new"};
    QTest::newRow("TVI_SORT") << "P"
                              << "TVI_SORT" << top << QStringList{"c0", "c1", "c2", "new"};
    QTest::newRow("TVI_ROOT parent") << "TVI_ROOT"
                                     << "TVI_LAST" << QStringList{"P", "T", "new"} << kids;
}

void TestCKtTreeCtrl::insertPlacement()
{
    QFETCH(QString, parent);
    QFETCH(QString, after);
    QFETCH(QStringList, topLevel);
    QFETCH(QStringList, children);

    QHash<QString, QTreeWidgetItem*> handles{{"", nullptr}, {"TVI_ROOT", TVI_ROOT}, {"TVI_FIRST", TVI_FIRST},
        {"TVI_LAST", TVI_LAST}, {"TVI_SORT", TVI_SORT}};
    handles["P"] = m_tree->InsertItem(L"P");
    handles["T"] = m_tree->InsertItem(L"T");
    QTreeWidgetItem* previous = nullptr;
    for (const wchar_t* name : {L"c0", L"c1", L"c2"})
        handles[QString::fromWCharArray(name)] = previous
            = m_tree->InsertItem(name, 0, 0, handles["P"], previous);

    QTreeWidgetItem* item = m_tree->InsertItem(L"new", 0, 0, handles[parent], handles[after]);
    QVERIFY(item);
    QCOMPARE(topLevelTexts(*m_tree), topLevel);
    QCOMPARE(childTexts(handles["P"]), children);
}

void TestCKtTreeCtrl::insertImages_data()
{
    QTest::addColumn<int>("listSize");
    QTest::addColumn<int>("image");
    QTest::addColumn<int>("selectedImage");
    QTest::addColumn<bool>("hasIcon");

    QTest::newRow("empty list, 0/0") << 0 << 0 << 0 << false;
    QTest::newRow("0/1") << 2 << 0 << 1 << true;
    QTest::newRow("1/0") << 2 << 1 << 0 << true;
    QTest::newRow("image out of range") << 2 << 2 << 0 << false;
    QTest::newRow("selected out of range") << 2 << 0 << 2 << false;
    QTest::newRow("negative image") << 2 << -1 << 0 << false;
    QTest::newRow("negative selected") << 2 << 1 << -5 << false;
}

void TestCKtTreeCtrl::insertImages()
{
    QFETCH(int, listSize);
    QFETCH(int, image);
    QFETCH(int, selectedImage);
    QFETCH(bool, hasIcon);

    const QColor colors[] = {Qt::red, Qt::blue};
    for (int i = 0; i < listSize; ++i)
        m_tree->AppendItemImage(solid(colors[i]));

    QTreeWidgetItem* item = m_tree->InsertItem(L"x", image, selectedImage, nullptr, nullptr);
    QCOMPARE(!item->icon(0).isNull(), hasIcon);
    if (hasIcon) {
        QCOMPARE(iconColor(item->icon(0), QIcon::Normal), colors[image]);
        QCOMPARE(iconColor(item->icon(0), QIcon::Selected), colors[selectedImage]);
    }
    // The indices are stored even when no icon could be made.
    int gotImage = 0, gotSelected = 0;
    QCOMPARE(m_tree->GetItemImage(item, gotImage, gotSelected), 1);
    QCOMPARE(gotImage, image);
    QCOMPARE(gotSelected, selectedImage);
    QCOMPARE(item->data(0, KtItemRole::Image).userType(), int(QMetaType::Int));
    QCOMPARE(item->data(0, KtItemRole::CheckMirror).userType(), int(QMetaType::Int));
    QCOMPARE(item->data(0, KtItemRole::CheckMirror).toInt(), 0);
    QVERIFY(!item->data(0, KtItemRole::State).isValid());
}

void TestCKtTreeCtrl::insertStructure()
{
    m_tree->AppendItemImage(solid(Qt::red));
    m_tree->AppendItemImage(solid(Qt::blue));
    QTreeWidgetItem* parent = m_tree->InsertItem(L"parent");
    QTreeWidgetItem* first = m_tree->InsertItem(L"first", parent);
    m_tree->InsertItem(L"last", parent);

    wchar_t label[] = L"从结构插入";
    tagTVINSERTSTRUCT insert{};
    insert.hParent = parent;
    insert.hInsertAfter = first;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE;
    insert.item.pszText = label;
    insert.item.iImage = 1;
    insert.item.iSelectedImage = 0;
    insert.item.state = TVIS_BOLD;
    insert.item.stateMask = TVIS_BOLD;
    insert.item.lParam = 77;

    QTreeWidgetItem* item = m_tree->InsertItem(&insert);
    QCOMPARE(parent->indexOfChild(item), 1);
    QCOMPARE(text(m_tree->GetItemText(item)), QStringLiteral("从结构插入"));
    QCOMPARE(iconColor(item->icon(0), QIcon::Normal), QColor(Qt::blue));
    // Mask, state and lParam are not interpreted.
    QCOMPARE(m_tree->GetItemData(item), 0ull);
    QCOMPARE(m_tree->GetItemState(item, 0xFFFFFFFF), 0u);
    QCOMPARE(m_tree->InsertItem(static_cast<tagTVINSERTSTRUCT*>(nullptr)), nullptr);
}

void TestCKtTreeCtrl::checkBoxMode()
{
    QTreeWidgetItem* before = m_tree->InsertItem(L"before");
    m_tree->SetCheckBoxes(1, Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate);
    QCOMPARE(m_tree->GetCheckBoxes(), 1);
    QVERIFY(!(before->flags() & Qt::ItemIsAutoTristate));
    QVERIFY(!before->data(0, Qt::CheckStateRole).isValid());

    QTreeWidgetItem* after = m_tree->InsertItem(L"after");
    QVERIFY(after->flags() & Qt::ItemIsUserCheckable);
    QVERIFY(after->flags() & Qt::ItemIsAutoTristate);
    QCOMPARE(after->checkState(0), Qt::Unchecked);

    m_tree->SetCheckBoxes(5);
    QCOMPARE(m_tree->GetCheckBoxes(), 5);
    QTreeWidgetItem* defaults = m_tree->InsertItem(L"default flags");
    QVERIFY(defaults->flags() & Qt::ItemIsUserCheckable);
    QVERIFY(!(defaults->flags() & Qt::ItemIsAutoTristate));

    m_tree->SetCheckBoxes(0);
    QTreeWidgetItem* plain = m_tree->InsertItem(L"plain");
    QVERIFY(!plain->data(0, Qt::CheckStateRole).isValid());
    QVERIFY(after->flags() & Qt::ItemIsUserCheckable); // existing items keep their boxes
}

void TestCKtTreeCtrl::itemsAreIndependent()
{
    // Items built one after the other with the same settings share nothing a
    // later change to one of them could reach.
    QTreeWidgetItem* a = m_tree->InsertItem(L"a");
    QTreeWidgetItem* b = m_tree->InsertItem(L"b");
    m_tree->SetItemData(a, 42);
    m_tree->SetItemState(a, TVIS_SELECTED, TVIS_SELECTED);
    m_tree->SetCheck(a, 1);
    a->setFlags(a->flags() | Qt::ItemIsEditable);
    QCOMPARE(m_tree->GetItemData(b), 0ull);
    QCOMPARE(m_tree->GetItemState(b, TVIS_SELECTED), 0u);
    QCOMPARE(m_tree->GetCheck(b), 0);
    QVERIFY(!(b->flags() & Qt::ItemIsEditable));
    QCOMPARE(b->text(0), QStringLiteral("b"));

    QTreeWidgetItem* c = m_tree->InsertItem(L"c", 3, 4, nullptr, nullptr);
    m_tree->SetCheckBoxes(1, Qt::ItemIsUserCheckable | Qt::ItemIsEditable);
    QTreeWidgetItem* d = m_tree->InsertItem(L"d", 3, 4, nullptr, nullptr);
    m_tree->SetCheckBoxes(1, Qt::ItemIsUserCheckable);
    QTreeWidgetItem* e = m_tree->InsertItem(L"e", 3, 4, nullptr, nullptr);
    QVERIFY(!c->data(0, Qt::CheckStateRole).isValid());
    QVERIFY(d->flags() & Qt::ItemIsEditable);
    QVERIFY(!(e->flags() & Qt::ItemIsEditable));
    QCOMPARE(e->checkState(0), Qt::Unchecked);
    int image = 0, selected = 0;
    m_tree->GetItemImage(e, image, selected);
    QCOMPARE(image, 3);
    QCOMPARE(selected, 4);
    QCOMPARE(e->type(), int(QTreeWidgetItem::Type));
}

void TestCKtTreeCtrl::textAndData_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<qulonglong>("data");

    QTest::newRow("ascii") << "Layer 0" << qulonglong(1);
    QTest::newRow("empty") << "" << qulonglong(0);
    QTest::newRow("chinese") << QStringLiteral("图层") << qulonglong(0xFFFFFFFFull);
    QTest::newRow("emoji") << QStringLiteral("🙂 块") << qulonglong(~0ull);
}

void TestCKtTreeCtrl::textAndData()
{
    QFETCH(QString, label);
    QFETCH(qulonglong, data);

    const std::wstring wide = label.toStdWString();
    QTreeWidgetItem* item = m_tree->InsertItem(L"old");
    QCOMPARE(m_tree->SetItemText(item, wide.c_str()), 1);
    QCOMPARE(item->text(0), label);
    QCOMPARE(m_tree->GetItemText(item), KtString(wide.c_str()));

    QCOMPARE(m_tree->GetItemData(item), 0ull);
    QCOMPARE(m_tree->SetItemData(item, data), 1);
    QCOMPARE(m_tree->GetItemData(item), data);
    QCOMPARE(item->data(0, Qt::UserRole + 1).userType(), int(QMetaType::ULongLong));
}

void TestCKtTreeCtrl::setItemImage_data()
{
    QTest::addColumn<int>("image");
    QTest::addColumn<int>("selectedImage");
    QTest::addColumn<int>("result");

    QTest::newRow("valid") << 1 << 0 << 1;
    QTest::newRow("image too large") << 2 << 0 << 0;
    QTest::newRow("selected too large") << 0 << 2 << 0;
    QTest::newRow("negative") << -1 << 0 << 0;
}

void TestCKtTreeCtrl::setItemImage()
{
    QFETCH(int, image);
    QFETCH(int, selectedImage);
    QFETCH(int, result);

    const QColor colors[] = {Qt::red, Qt::blue};
    QTreeWidgetItem* item = m_tree->InsertItem(L"x", 5, 6, nullptr, nullptr);
    m_tree->AppendItemImage(solid(Qt::red));
    m_tree->AppendItemImage(solid(Qt::blue));

    QCOMPARE(m_tree->SetItemImage(item, image, selectedImage), result);
    int gotImage = 0, gotSelected = 0;
    m_tree->GetItemImage(item, gotImage, gotSelected);
    QCOMPARE(gotImage, result ? image : 5);
    QCOMPARE(gotSelected, result ? selectedImage : 6);
    QCOMPARE(item->icon(0).isNull(), !result);
    if (result) {
        QCOMPARE(iconColor(item->icon(0), QIcon::Normal), colors[image]);
        QCOMPARE(iconColor(item->icon(0), QIcon::Selected), colors[selectedImage]);
    }
}

void TestCKtTreeCtrl::setItemState_data()
{
    QTest::addColumn<uint>("initial");
    QTest::addColumn<uint>("state");
    QTest::addColumn<uint>("mask");
    QTest::addColumn<uint>("expected");

    QTest::newRow("set selected") << 0u << 0x2u << 0x2u << 0x2u;
    QTest::newRow("clear selected") << 0x22u << 0u << 0x2u << 0x20u;
    QTest::newRow("clear absent bit") << 0x20u << 0u << 0x2u << 0x20u;
    QTest::newRow("set already set") << 0x22u << 0x2u << 0x2u << 0x22u;
    QTest::newRow("two-bit mask, one set") << 0x20u << 0u << 0x22u << 0x20u;
    QTest::newRow("two-bit mask, both set") << 0x22u << 0u << 0x22u << 0u;
    QTest::newRow("partial mask still ORs") << 0x02u << 0x40u << 0x22u << 0x42u;
    QTest::newRow("state outside mask") << 0x20u << 0x4u << 0x2u << 0x24u;
    QTest::newRow("mask 0 ORs") << 0x20u << 0x8u << 0u << 0x28u;
    QTest::newRow("replace all") << 0x22u << 0x10u << 0xFFFFFFFFu << 0x10u;
    QTest::newRow("private collapse") << 0x22u << 0x40u << 1u << 0x02u;
    QTest::newRow("private collapse, not expanded") << 0x02u << 0u << 1u << 0x02u;
}

void TestCKtTreeCtrl::setItemState()
{
    QFETCH(uint, initial);
    QFETCH(uint, state);
    QFETCH(uint, mask);
    QFETCH(uint, expected);

    QTreeWidgetItem* item = m_tree->InsertItem(L"x");
    if (initial)
        item->setData(0, KtItemRole::State, initial);
    QCOMPARE(m_tree->SetItemState(item, state, mask), 1);
    QCOMPARE(stored(item), expected);
    QCOMPARE(item->data(0, KtItemRole::State).userType(), int(QMetaType::UInt));
    // Any mask but the state-image mask reads back the whole, unmasked value.
    QCOMPARE(m_tree->GetItemState(item, TVIS_SELECTED), expected);
    QCOMPARE(item->data(0, Qt::CheckStateRole).isValid(), false);
}

void TestCKtTreeCtrl::setItemStateEmitsNothing()
{
    QTreeWidgetItem* item = m_tree->InsertItem(L"x");
    QSignalSpy changed(m_tree.get(), &QTreeWidget::itemChanged);

    item->setData(0, KtItemRole::State, 0u); // a plain write does reach the signal
    QCOMPARE(changed.count(), 1);

    m_tree->SetItemState(item, TVIS_SELECTED, TVIS_SELECTED);
    m_tree->Expand(item, TVE_EXPAND);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!m_tree->signalsBlocked());

    // Already blocked: written directly and left blocked.
    m_tree->blockSignals(true);
    m_tree->SetItemState(item, 0, TVIS_SELECTED);
    QVERIFY(m_tree->signalsBlocked());
    m_tree->blockSignals(false);
    QCOMPARE(stored(item), TVIS_EXPANDED);
    QCOMPARE(changed.count(), 1);
}

void TestCKtTreeCtrl::stateImageMask_data()
{
    QTest::addColumn<uint>("state");
    QTest::addColumn<int>("check");

    QTest::newRow("image 0") << 0x0000u << int(Qt::Unchecked);
    QTest::newRow("image 1") << 0x1000u << int(Qt::Unchecked);
    QTest::newRow("image 2") << 0x2000u << int(Qt::PartiallyChecked);
    QTest::newRow("image 3") << 0x3000u << int(Qt::Checked);
    QTest::newRow("image 4") << 0x4000u << int(Qt::Unchecked);
    QTest::newRow("image 3 with low bits") << 0x3022u << int(Qt::Checked);
}

void TestCKtTreeCtrl::stateImageMask()
{
    QFETCH(uint, state);
    QFETCH(int, check);

    QTreeWidgetItem* item = m_tree->InsertItem(L"x");
    item->setData(0, KtItemRole::State, 0x20u);
    QCOMPARE(m_tree->SetItemState(item, state, TVIS_STATEIMAGEMASK), 1);
    QCOMPARE(item->data(0, Qt::CheckStateRole).toInt(), check);
    QCOMPARE(item->data(0, KtItemRole::CheckMirror).toInt(), check);
    QCOMPARE(stored(item), 0x20u); // the stored bits are not touched
}

void TestCKtTreeCtrl::siblingCheckSummary_data()
{
    QTest::addColumn<QList<int>>("mirrors"); // check mirror of each child; the first one is asked
    QTest::addColumn<uint>("expected");

    QTest::newRow("all unchecked") << QList<int>{0, 0, 0} << 0x1000u;
    QTest::newRow("all checked") << QList<int>{2, 2, 2} << 0x3000u;
    QTest::newRow("one partial, two checked") << QList<int>{1, 2, 2} << 0x2000u;
    QTest::newRow("partial counts as unchecked") << QList<int>{1, 1, 1} << 0x1000u;
    QTest::newRow("asked item unchecked, sibling checked") << QList<int>{0, 2} << 0x2000u;
    QTest::newRow("only child checked") << QList<int>{2} << 0x3000u;
}

void TestCKtTreeCtrl::siblingCheckSummary()
{
    QFETCH(QList<int>, mirrors);
    QFETCH(uint, expected);

    QTreeWidgetItem* parent = m_tree->InsertItem(L"parent");
    QList<QTreeWidgetItem*> children;
    for (int mirror : mirrors) {
        QTreeWidgetItem* child = m_tree->InsertItem(L"child", parent);
        m_tree->SetItemState(child,
            mirror == 2       ? 0x3000u
                : mirror == 1 ? 0x2000u
                              : 0x1000u,
            TVIS_STATEIMAGEMASK);
        children << child;
    }
    // Visible check boxes changed without the control do not count, nor do the
    // item's own children: only the siblings' recorded checks.
    for (QTreeWidgetItem* child : children)
        child->setData(0, Qt::CheckStateRole, Qt::Checked);
    QTreeWidgetItem* grandChild = m_tree->InsertItem(L"grandchild", children.first());
    m_tree->SetCheck(grandChild, 1);

    QCOMPARE(m_tree->GetItemState(children.first(), TVIS_STATEIMAGEMASK), expected);
    QCOMPARE(m_tree->GetItemState(children.last(), TVIS_STATEIMAGEMASK), expected);

    // A top-level item reads its own visible check box only.
    m_tree->SetCheck(parent, 0);
    QCOMPARE(m_tree->GetItemState(parent, TVIS_STATEIMAGEMASK), 0x1000u);
    parent->setCheckState(0, Qt::Checked); // as a user click would
    QCOMPARE(m_tree->GetItemState(parent, TVIS_STATEIMAGEMASK), 0x3000u);
    parent->setCheckState(0, Qt::PartiallyChecked);
    QCOMPARE(m_tree->GetItemState(parent, TVIS_STATEIMAGEMASK), 0x1000u);
}

void TestCKtTreeCtrl::navigation()
{
    QCOMPARE(m_tree->GetRootItem(), m_tree->invisibleRootItem());
    QCOMPARE(m_tree->GetChildItem(nullptr), nullptr);

    QTreeWidgetItem* a = m_tree->InsertItem(L"a");
    QTreeWidgetItem* b = m_tree->InsertItem(L"b");
    QTreeWidgetItem* a1 = m_tree->InsertItem(L"a1", a);
    QTreeWidgetItem* a2 = m_tree->InsertItem(L"a2", a);

    QCOMPARE(m_tree->GetRootItem(), a);
    QCOMPARE(m_tree->GetChildItem(nullptr), a);
    QCOMPARE(m_tree->GetChildItem(a), a1);
    QCOMPARE(m_tree->GetChildItem(b), nullptr);
    QCOMPARE(m_tree->GetParentItem(a1), a);
    QCOMPARE(m_tree->GetParentItem(a), nullptr);
    QCOMPARE(m_tree->GetNextSiblingItem(a), b);
    QCOMPARE(m_tree->GetNextSiblingItem(b), nullptr);
    QCOMPARE(m_tree->GetPrevSiblingItem(b), a);
    QCOMPARE(m_tree->GetPrevSiblingItem(a), nullptr);
    QCOMPARE(m_tree->GetNextSiblingItem(a1), a2);
    QCOMPARE(m_tree->GetPrevSiblingItem(a2), a1);
    QCOMPARE(m_tree->GetPrevSiblingItem(a1), nullptr);
    QCOMPARE(m_tree->ItemHasChildren(a), 1);
    QCOMPARE(m_tree->ItemHasChildren(a1), 0);

    // An item of another tree has no siblings here.
    CKtTreeCtrl other(nullptr);
    QTreeWidgetItem* foreign = other.InsertItem(L"foreign");
    other.InsertItem(L"foreign 2");
    QCOMPARE(m_tree->GetNextSiblingItem(foreign), nullptr);
}

void TestCKtTreeCtrl::getNextItem_data()
{
    QTest::addColumn<uint>("code");
    QTest::addColumn<bool>("givesNext");

    QTest::newRow("TVGN_ROOT") << TVGN_ROOT << false;
    QTest::newRow("TVGN_NEXT") << TVGN_NEXT << true;
    QTest::newRow("TVGN_PREVIOUS") << TVGN_PREVIOUS << false;
    QTest::newRow("TVGN_PARENT") << TVGN_PARENT << true;
    QTest::newRow("TVGN_CHILD") << TVGN_CHILD << false;
    QTest::newRow("TVGN_FIRSTVISIBLE") << TVGN_FIRSTVISIBLE << true;
    QTest::newRow("TVGN_NEXTVISIBLE") << TVGN_NEXTVISIBLE << false;
    QTest::newRow("TVGN_PREVIOUSVISIBLE") << TVGN_PREVIOUSVISIBLE << true;
    QTest::newRow("TVGN_DROPHILITE") << TVGN_DROPHILITE << false;
    QTest::newRow("TVGN_CARET") << TVGN_CARET << true;
    QTest::newRow("TVGN_LASTVISIBLE") << TVGN_LASTVISIBLE << false;
    QTest::newRow("unknown odd") << 0x101u << true;
}

void TestCKtTreeCtrl::getNextItem()
{
    QFETCH(uint, code);
    QFETCH(bool, givesNext);

    QTreeWidgetItem* parent = m_tree->InsertItem(L"parent");
    QTreeWidgetItem* first = m_tree->InsertItem(L"first", parent);
    QTreeWidgetItem* second = m_tree->InsertItem(L"second", parent);
    m_tree->SelectItem(parent); // the caret is elsewhere: TVGN_CARET still walks to the sibling

    QCOMPARE(m_tree->GetNextItem(first, code), givesNext ? second : nullptr);
    QCOMPARE(m_tree->GetNextItem(second, code), nullptr);
    QCOMPARE(m_tree->GetNextItem(nullptr, code), nullptr);
}

void TestCKtTreeCtrl::siblingWalkAfterEdits()
{
    // Sibling look-ups stay right while items are inserted and deleted between them.
    QTreeWidgetItem* parent = m_tree->InsertItem(L"parent");
    QList<QTreeWidgetItem*> items;
    for (int i = 0; i < 50; ++i)
        items << m_tree->InsertItem(L"child", parent);
    QCOMPARE(m_tree->GetNextSiblingItem(items[10]), items[11]);
    m_tree->DeleteItem(items[11]);
    QCOMPARE(m_tree->GetNextSiblingItem(items[10]), items[12]);
    QTreeWidgetItem* inserted = m_tree->InsertItem(L"inserted", 0, 0, parent, items[5]);
    QCOMPARE(m_tree->GetNextSiblingItem(items[5]), inserted);
    QCOMPARE(m_tree->GetPrevSiblingItem(items[6]), inserted);
    QCOMPARE(m_tree->GetNextSiblingItem(items[49]), nullptr);
    QCOMPARE(m_tree->GetPrevSiblingItem(items[0]), nullptr);

    int walked = 0;
    for (QTreeWidgetItem* it = m_tree->GetChildItem(parent); it; it = m_tree->GetNextSiblingItem(it))
        ++walked;
    QCOMPARE(walked, parent->childCount());
}

void TestCKtTreeCtrl::counts()
{
    QCOMPARE(m_tree->GetCount(), 0u);
    QTreeWidgetItem* a = m_tree->InsertItem(L"a");
    QTreeWidgetItem* a1 = m_tree->InsertItem(L"a1", a);
    m_tree->InsertItem(L"a1x", a1);
    m_tree->InsertItem(L"a2", a);
    QTreeWidgetItem* b = m_tree->InsertItem(L"b");
    QTreeWidgetItem* hidden = m_tree->InsertItem(L"hidden", b);
    m_tree->InsertItem(L"under hidden", hidden);
    QCOMPARE(m_tree->GetCount(), 7u); // collapsed branches included

    m_tree->resize(200, 60); // most rows fall outside the viewport
    m_tree->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_tree.get()));
    QCOMPARE(m_tree->GetVisibleCount(), 2u);
    m_tree->expandAll();
    QCOMPARE(m_tree->GetVisibleCount(), 7u); // scrolled out of view still counts
    hidden->setHidden(true);
    QCOMPARE(m_tree->GetVisibleCount(), 5u);
    a->setExpanded(false);
    QCOMPARE(m_tree->GetVisibleCount(), 2u);

    // A view rooted at a collapsed item lays out that item's children.
    a1->setExpanded(false);
    m_tree->setRootIndex(m_tree->model()->index(m_tree->indexOfTopLevelItem(a), 0));
    QCOMPARE(m_tree->GetVisibleCount(), 2u);
    a1->setExpanded(true);
    QCOMPARE(m_tree->GetVisibleCount(), 3u);
}

void TestCKtTreeCtrl::geometry()
{
    QTreeWidgetItem* top = m_tree->InsertItem(L"top");
    QTreeWidgetItem* child = m_tree->InsertItem(L"child", top);
    QTreeWidgetItem* second = m_tree->InsertItem(L"second");
    m_tree->resize(300, 200);
    m_tree->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_tree.get()));

    tagRECT rect{-1, -1, -1, -1};
    QCOMPARE(m_tree->GetItemRect(second, &rect, 1), 1);
    const QRect expected = m_tree->visualItemRect(second);
    QVERIFY(expected.isValid());
    QCOMPARE(rect.left, expected.x());
    QCOMPARE(rect.top, expected.y());
    QCOMPARE(rect.right, expected.x() + expected.width());
    QCOMPARE(rect.bottom, expected.y() + expected.height());

    QCOMPARE(m_tree->GetItemRect(child, &rect, 0), 1); // collapsed: Qt's empty rectangle
    QCOMPARE(QRect(rect.left, rect.top, rect.right, rect.bottom), QRect(0, 0, 0, 0));
    QCOMPARE(m_tree->GetItemRect(second, nullptr, 0), 0);
    tagRECT textOnly{};
    QCOMPARE(m_tree->GetItemRect(second, &textOnly, 0), 1);
    QCOMPARE(QRect(textOnly.left, textOnly.top, textOnly.right, textOnly.bottom),
        QRect(expected.x(), expected.y(), expected.right() + 1, expected.bottom() + 1));
    second->setHidden(true);
    QCOMPARE(m_tree->GetItemRect(second, &rect, 0), 1);
    QCOMPARE(QRect(rect.left, rect.top, rect.right, rect.bottom), QRect(0, 0, 0, 0));
    second->setHidden(false);

    unsigned int flags = 0;
    QCOMPARE(m_tree->HitTest(expected.center(), &flags), second);
    QCOMPARE(flags, 7u);
    flags = 0;
    QCOMPARE(m_tree->HitTest(QPoint(5, 190), &flags), nullptr); // empty space
    QCOMPARE(flags, 7u);
    QCOMPARE(m_tree->HitTest(expected.center(), nullptr), second);
    QCOMPARE(m_tree->GetFirstVisibleItem(), top);

    for (int i = 0; i < 40; ++i)
        m_tree->InsertItem(L"filler");
    m_tree->scrollToItem(m_tree->topLevelItem(3), QAbstractItemView::PositionAtTop);
    QCOMPARE(m_tree->GetFirstVisibleItem(), m_tree->topLevelItem(3));
    QCOMPARE(m_tree->EnsureVisible(top), 1);
    QCOMPARE(m_tree->GetFirstVisibleItem(), top);
}

void TestCKtTreeCtrl::selection()
{
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QTreeWidgetItem* a = m_tree->InsertItem(L"a");
    QTreeWidgetItem* b = m_tree->InsertItem(L"b");
    QTreeWidgetItem* c = m_tree->InsertItem(L"c");
    a->setSelected(true);
    b->setSelected(true);
    a->setData(0, KtItemRole::State, TVIS_SELECTED | TVIS_EXPANDED);
    b->setData(0, KtItemRole::State, TVIS_SELECTED);

    QCOMPARE(m_tree->SelectItem(c), 1);
    QCOMPARE(m_tree->GetSelectedItem(), c);
    QCOMPARE(stored(a), TVIS_EXPANDED);
    QCOMPARE(stored(b), 0u);
    QCOMPARE(stored(c), TVIS_SELECTED);

    QCOMPARE(m_tree->Select(a, TVGN_DROPHILITE), 0);
    QCOMPARE(m_tree->Select(a, TVGN_FIRSTVISIBLE), 0);
    QCOMPARE(m_tree->GetSelectedItem(), c);
    QCOMPARE(m_tree->Select(a, TVGN_CARET), 1);
    QCOMPARE(m_tree->GetSelectedItem(), a);
    QCOMPARE(stored(c), 0u);

    QCOMPARE(m_tree->SelectItem(nullptr), 1);
    QCOMPARE(m_tree->GetSelectedItem(), nullptr);

    // Only items Qt reports as selected lose the bit.
    b->setData(0, KtItemRole::State, TVIS_SELECTED);
    b->setSelected(false);
    m_tree->SelectItem(c);
    QCOMPARE(stored(b), TVIS_SELECTED);
}

void TestCKtTreeCtrl::dropTargetAndEditLabel()
{
    QTreeWidgetItem* item = m_tree->InsertItem(L"label");
    item->setFlags(item->flags() & ~(Qt::ItemIsDropEnabled | Qt::ItemIsEditable));
    QCOMPARE(m_tree->SelectDropTarget(item), 1);
    QVERIFY(item->flags() & Qt::ItemIsDropEnabled);

    m_tree->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_tree.get()));
    QSignalSpy changed(m_tree.get(), &QTreeWidget::itemChanged);
    m_tree->blockSignals(true); // unblocked afterwards, not restored
    QCOMPARE(m_tree->EditLabel(item), 1);
    QVERIFY(!m_tree->signalsBlocked());
    QVERIFY(item->flags() & Qt::ItemIsEditable);
    QCOMPARE(changed.count(), 0);
    QTRY_VERIFY(m_tree->viewport()->findChild<QLineEdit*>());
}

void TestCKtTreeCtrl::expand_data()
{
    QTest::addColumn<uint>("code");
    QTest::addColumn<bool>("startExpanded");
    QTest::addColumn<bool>("expanded");

    QTest::newRow("TVE_EXPAND") << TVE_EXPAND << false << true;
    QTest::newRow("TVE_COLLAPSE") << TVE_COLLAPSE << true << false;
    QTest::newRow("TVE_TOGGLE on collapsed") << TVE_TOGGLE << false << true;
    QTest::newRow("TVE_TOGGLE on expanded") << TVE_TOGGLE << true << true;
    QTest::newRow("code 0 expands") << 0u << false << true;
    QTest::newRow("TVE_COLLAPSERESET alone expands") << TVE_COLLAPSERESET << true << true;
    QTest::newRow("collapse with reset") << (TVE_COLLAPSE | TVE_COLLAPSERESET) << true << false;
}

void TestCKtTreeCtrl::expand()
{
    QFETCH(uint, code);
    QFETCH(bool, startExpanded);
    QFETCH(bool, expanded);

    QTreeWidgetItem* item = m_tree->InsertItem(L"parent");
    m_tree->InsertItem(L"child", item);
    m_tree->Expand(item, startExpanded ? TVE_EXPAND : TVE_COLLAPSE);
    item->setData(0, KtItemRole::State, (startExpanded ? TVIS_EXPANDED : 0u) | TVIS_SELECTED);

    QCOMPARE(m_tree->Expand(item, code), 1);
    QCOMPARE(item->isExpanded(), expanded);
    QCOMPARE(stored(item), (expanded ? TVIS_EXPANDED : 0u) | TVIS_SELECTED);
}

void TestCKtTreeCtrl::expandAllChild()
{
    QTreeWidgetItem* leaf = m_tree->InsertItem(L"leaf");
    QCOMPARE(m_tree->ExpandAllChild(leaf, TVE_EXPAND), 1);
    QVERIFY(!leaf->isExpanded());
    QCOMPARE(stored(leaf), 0u);

    QTreeWidgetItem* root = m_tree->InsertItem(L"root");
    QTreeWidgetItem* branch = m_tree->InsertItem(L"branch", root);
    QTreeWidgetItem* twig = m_tree->InsertItem(L"twig", branch);
    QTreeWidgetItem* end = m_tree->InsertItem(L"end", twig);
    QTreeWidgetItem* sideLeaf = m_tree->InsertItem(L"side leaf", root);

    QCOMPARE(m_tree->ExpandAllChild(root, TVE_EXPAND), 1);
    for (QTreeWidgetItem* item : {root, branch, twig}) {
        QVERIFY(item->isExpanded());
        QCOMPARE(stored(item), TVIS_EXPANDED);
    }
    for (QTreeWidgetItem* item : {end, sideLeaf})
        QVERIFY(!item->data(0, KtItemRole::State).isValid());

    QCOMPARE(m_tree->ExpandAllChild(branch, TVE_COLLAPSE), 1);
    QVERIFY(root->isExpanded());
    QVERIFY(!branch->isExpanded());
    QVERIFY(!twig->isExpanded());
    QCOMPARE(stored(twig), 0u);
    QCOMPARE(m_tree->ExpandAllChild(nullptr, TVE_EXPAND), 0);
    QCOMPARE(m_tree->ExpandAllChild(root, 0), 1); // code 0 expands like TVE_EXPAND
    QVERIFY(branch->isExpanded() && twig->isExpanded());

    // A leaf expanded on its own still records the bit.
    QCOMPARE(m_tree->Expand(leaf, TVE_EXPAND), 1);
    QCOMPARE(stored(leaf), TVIS_EXPANDED);
}

void TestCKtTreeCtrl::expandWithSlotsEditingTheTree()
{
    // Slots run while the walk is under way may delete items still to be visited.
    QTreeWidgetItem* root = m_tree->InsertItem(L"root");
    QList<QTreeWidgetItem*> branches;
    for (int i = 0; i < 4; ++i) {
        branches << m_tree->InsertItem(L"branch", root);
        m_tree->InsertItem(L"leaf", branches.last());
    }
    connect(m_tree.get(), &QTreeWidget::itemExpanded, this, [&](QTreeWidgetItem* item) {
        if (item == branches[0]) {
            delete branches[1];
            m_tree->InsertItem(L"late leaf", branches[2]);
        }
    });
    QCOMPARE(m_tree->ExpandAllChild(root, TVE_EXPAND), 1);
    QCOMPARE(root->childCount(), 3);
    for (int i = 0; i < root->childCount(); ++i)
        QVERIFY(root->child(i)->isExpanded());

    connect(m_tree.get(), &QTreeWidget::itemChanged, this, [&](QTreeWidgetItem* item) {
        if (item == branches[2])
            delete branches[3];
    });
    m_tree->CollapseAll();
    QCOMPARE(root->childCount(), 2);
    QCOMPARE(m_tree->GetCount(), 6u);
}

void TestCKtTreeCtrl::expandAllAndCollapseAll()
{
    QTreeWidgetItem* first = m_tree->InsertItem(L"first");
    QTreeWidgetItem* f1 = m_tree->InsertItem(L"f1", first);
    QTreeWidgetItem* f11 = m_tree->InsertItem(L"f11", f1);
    QTreeWidgetItem* second = m_tree->InsertItem(L"second");
    QTreeWidgetItem* s1 = m_tree->InsertItem(L"s1", second);
    m_tree->InsertItem(L"s11", s1);
    f11->setData(0, KtItemRole::State, TVIS_SELECTED);

    m_tree->ExpandAll();
    for (QTreeWidgetItem* item : {first, f1, second, s1})
        QVERIFY(item->isExpanded());
    // Only the descendants of the first top-level item are recorded.
    QCOMPARE(stored(f1), TVIS_EXPANDED);
    QCOMPARE(stored(f11), TVIS_EXPANDED | TVIS_SELECTED);
    QVERIFY(!first->data(0, KtItemRole::State).isValid());
    QVERIFY(!s1->data(0, KtItemRole::State).isValid());

    m_tree->Expand(second, TVE_EXPAND);
    QSignalSpy changed(m_tree.get(), &QTreeWidget::itemChanged);
    m_tree->CollapseAll();
    QCOMPARE(changed.count(), 2); // written without a blocker: one signal per descendant
    for (QTreeWidgetItem* item : {first, f1, second, s1})
        QVERIFY(!item->isExpanded());
    QCOMPARE(stored(f1), 0u);
    QCOMPARE(stored(f11), TVIS_SELECTED);
    QCOMPARE(stored(second), TVIS_EXPANDED);

    // An absent state below the first item becomes a stored 0.
    QTreeWidgetItem* fresh = m_tree->InsertItem(L"fresh", f1);
    m_tree->CollapseAll();
    QCOMPARE(fresh->data(0, KtItemRole::State), QVariant(0u));

    m_tree->DeleteAllItems();
    m_tree->ExpandAll(); // the empty tree's root is the invisible root item
    m_tree->CollapseAll();
    QCOMPARE(m_tree->GetCount(), 0u);
}

void TestCKtTreeCtrl::checks()
{
    QTreeWidgetItem* item = m_tree->InsertItem(L"x");
    QCOMPARE(m_tree->GetCheck(item), 0);
    QCOMPARE(m_tree->SetCheck(item, 5), 1);
    QCOMPARE(m_tree->GetCheck(item), 1);
    QCOMPARE(item->checkState(0), Qt::Checked);

    item->setCheckState(0, Qt::Unchecked); // a user toggle changes the visible state only
    QCOMPARE(m_tree->GetCheck(item), 1);
    QCOMPARE(m_tree->SetCheck(item, 0), 1);
    QCOMPARE(m_tree->GetCheck(item), 0);

    m_tree->SetItemState(item, 0x2000, TVIS_STATEIMAGEMASK);
    QCOMPARE(m_tree->GetCheck(item), 0); // partial is not checked
    m_tree->SetItemState(item, 0x3000, TVIS_STATEIMAGEMASK);
    QCOMPARE(m_tree->GetCheck(item), 1);
}

void TestCKtTreeCtrl::deletion()
{
    QTreeWidgetItem* parent = m_tree->InsertItem(L"parent");
    QTreeWidgetItem* child = m_tree->InsertItem(L"child", parent);
    m_tree->InsertItem(L"grandchild", child);
    QTreeWidgetItem* other = m_tree->InsertItem(L"other");
    QPointer<QLabel> label = new QLabel(QStringLiteral("widget"));
    m_tree->setItemWidget(child, 0, label);
    m_tree->SelectItem(child);

    QSignalSpy current(m_tree.get(), &QTreeWidget::currentItemChanged);
    QSignalSpy selection(m_tree.get(), &QTreeWidget::itemSelectionChanged);
    m_tree->blockSignals(true); // unblocked afterwards, not restored
    QCOMPARE(m_tree->DeleteItem(child), 1);
    QVERIFY(!m_tree->signalsBlocked());
    QCOMPARE(current.count(), 0);
    QCOMPARE(selection.count(), 0);
    QCOMPARE(m_tree->GetCount(), 2u);
    QCOMPARE(parent->childCount(), 0);
    QTRY_VERIFY(label.isNull()); // the item widget goes with the item

    QCOMPARE(m_tree->DeleteItem(nullptr), 1);
    QCOMPARE(m_tree->GetCount(), 2u);
    QCOMPARE(m_tree->DeleteItem(other), 1);
    QCOMPARE(m_tree->DeleteAllItems(), 1);
    QCOMPARE(m_tree->GetCount(), 0u);
    QCOMPARE(m_tree->GetRootItem(), m_tree->invisibleRootItem());
}

void TestCKtTreeCtrl::dragImage()
{
    m_tree->AppendItemImage(solid(Qt::red));
    QTreeWidgetItem* item = m_tree->InsertItem(L"drag me");
    m_tree->resize(240, 120);
    m_tree->move(40, 40);
    m_tree->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_tree.get()));

    const QPixmap image = m_tree->CreateDragImage(item);
    QVERIFY(!image.isNull());
    const QRect rect = m_tree->visualItemRect(item);
    QCOMPARE(image.size() / image.devicePixelRatio(), rect.size());
}

void TestCKtTreeCtrl::nullHandles()
{
    int image = 3, selected = 3;
    tagRECT rect{1, 2, 3, 4};
    QCOMPARE(m_tree->SetItemText(nullptr, L"x"), 0);
    QCOMPARE(m_tree->GetItemText(nullptr).length(), 0);
    QCOMPARE(m_tree->GetItemImage(nullptr, image, selected), 0);
    QCOMPARE(image, -1);
    QCOMPARE(selected, -1);
    m_tree->AppendItemImage(solid(Qt::red));
    QCOMPARE(m_tree->SetItemImage(nullptr, 0, 0), 0);
    QCOMPARE(m_tree->SetItemData(nullptr, 1), 0);
    QCOMPARE(m_tree->GetItemData(nullptr), 0ull);
    QCOMPARE(m_tree->SetItemState(nullptr, 2, 2), 0);
    QCOMPARE(m_tree->GetItemState(nullptr, TVIS_STATEIMAGEMASK), 0u);
    QCOMPARE(m_tree->GetItemRect(nullptr, &rect, 0), 1);
    QCOMPARE(QRect(rect.left, rect.top, rect.right, rect.bottom), QRect(0, 0, 0, 0));
    QCOMPARE(m_tree->GetParentItem(nullptr), nullptr);
    QCOMPARE(m_tree->GetNextSiblingItem(nullptr), nullptr);
    QCOMPARE(m_tree->GetPrevSiblingItem(nullptr), nullptr);
    QCOMPARE(m_tree->ItemHasChildren(nullptr), 0);
    QCOMPARE(m_tree->SelectDropTarget(nullptr), 0);
    QCOMPARE(m_tree->EnsureVisible(nullptr), 0);
    QCOMPARE(m_tree->EditLabel(nullptr), 0);
    QCOMPARE(m_tree->Expand(nullptr, TVE_EXPAND), 0);
    QCOMPARE(m_tree->SetCheck(nullptr, 1), 0);
    QCOMPARE(m_tree->GetCheck(nullptr), 0);
    QCOMPARE(m_tree->InsertItem(nullptr, nullptr)->text(0), QString()); // null text: empty item
}

QTEST_MAIN(TestCKtTreeCtrl)
#include "tst_ckttreectrl.moc"
