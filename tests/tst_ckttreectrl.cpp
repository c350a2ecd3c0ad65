// Tests of CKtTreeCtrl: insertion, item values, state bits, navigation,
// expansion, check boxes and deletion through the foundation-class API.

#include "imagelistchecks.h"

#include <CKtTreeCtrl>
#include <KtItemRole>

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <memory>

Q_DECLARE_METATYPE(QTreeWidgetItem*)

using HandleMaker = std::function<QTreeWidgetItem*(CKtTreeCtrl&)>;
Q_DECLARE_METATYPE(HandleMaker)

namespace {

QStringList texts(const QTreeWidgetItem* parent)
{
    QStringList result;
    for (int i = 0; i < parent->childCount(); ++i)
        result << parent->child(i)->text(0);
    return result;
}

unsigned int stored(const QTreeWidgetItem* item)
{
    return item->data(0, KtItemRole::State).toUInt();
}

QRect asRect(const tagRECT& r)
{
    return QRect(QPoint(r.left, r.top), QPoint(r.right, r.bottom)); // corners as written
}

} // namespace

class TestCKtTreeCtrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QTreeWidgetItem*>(); }
    void init() { m_tree = std::make_unique<CKtTreeCtrl>(nullptr); }
    void cleanup() { m_tree.reset(); }

    void imageList()
    {
        checkImageList(*m_tree, [this](int image) {
            QTreeWidgetItem* item = m_tree->InsertItem(L"x", image, image, nullptr, nullptr);
            return IconOf([item] { return item->icon(0); });
        });
    }

    void insertion()
    {
        // A parent P with children c0, c1, c2, each inserted after the one before, and T.
        m_tree->SetImageList(CKtImageList{solid(Qt::red), solid(Qt::blue)}, 0);
        QTreeWidgetItem* p = m_tree->InsertItem(L"P");
        QTreeWidgetItem* t = m_tree->InsertItem(L"T");
        QTreeWidgetItem* previous = nullptr;
        for (const wchar_t* name : {L"c0", L"c1", L"c2"})
            previous = m_tree->InsertItem(name, 0, 0, p, previous);

        // Without a parent the item goes last in the top level, whatever it is to follow; after
        // anything that is not a child of the parent (nothing, T, a pseudo handle), last of all.
        m_tree->InsertItem(L"top", 0, 0, nullptr, p->child(0));
        m_tree->InsertItem(L"short form", p);
        m_tree->InsertItem(L"after T", 0, 0, p, t);
        m_tree->InsertItem(L"after TVI_SORT", 0, 0, p, TVI_SORT);
        wchar_t label[] = L"从结构插入 🙂";
        tagTVINSERTSTRUCT insert{};
        insert.hParent = p;
        insert.hInsertAfter = p->child(0);
        insert.item
            = {TVIF_TEXT | TVIF_PARAM | TVIF_STATE, nullptr, TVIS_BOLD, TVIS_BOLD, label, 0, 1, 0, 0, 77};
        QTreeWidgetItem* item = m_tree->InsertItem(&insert);
        QCOMPARE(texts(m_tree->invisibleRootItem()), (QStringList{"P", "T", "top"}));
        const QStringList children{
            "c0", QString::fromWCharArray(label), "c1", "c2", "short form", "after T", "after TVI_SORT"};
        QCOMPARE(texts(p), children);
        QCOMPARE(m_tree->GetItemText(item), KtString(label));
        QCOMPARE(iconColor(item->icon(0), QIcon::Normal), QColor(Qt::blue));
        QCOMPARE(m_tree->GetItemData(item), 0ull); // mask, state and lParam are not read
        QCOMPARE(m_tree->GetItemState(item, 0xFFFFFFFF), 0u);
        QCOMPARE(m_tree->InsertItem(static_cast<tagTVINSERTSTRUCT*>(nullptr)), nullptr);
        QCOMPARE(m_tree->SetItemText(item, nullptr), 1);
        QCOMPARE(item->text(0), QString());
        QCOMPARE(m_tree->SetItemData(item, ~0ull), 1);
        QCOMPARE(m_tree->GetItemData(item), ~0ull);
        QCOMPARE(item->data(0, KtItemRole::ItemData).userType(), int(QMetaType::ULongLong));

        // Check boxes and their flags reach only items inserted while the mode is on; items
        // share nothing a later change to one of them could reach.
        m_tree->SetCheckBoxes(5);
        QTreeWidgetItem* boxed = m_tree->InsertItem(L"boxed");
        QCOMPARE(boxed->checkState(0), Qt::Unchecked);
        QVERIFY(boxed->flags() & Qt::ItemIsUserCheckable);
        m_tree->SetCheckBoxes(1, Qt::ItemIsAutoTristate | Qt::ItemIsEditable);
        QTreeWidgetItem* tristate = m_tree->InsertItem(L"tristate");
        m_tree->SetCheckBoxes(0, Qt::ItemIsAutoTristate);
        QTreeWidgetItem* plain = m_tree->InsertItem(L"plain");
        const Qt::ItemFlags extra = Qt::ItemIsAutoTristate | Qt::ItemIsEditable;
        QCOMPARE(tristate->flags() & extra, extra);
        QCOMPARE(plain->flags() & extra, Qt::ItemFlags());
        QVERIFY(!plain->data(0, Qt::CheckStateRole).isValid());
        QVERIFY(!t->data(0, Qt::CheckStateRole).isValid());

        // Both indices must be below the image count. The indices are stored even when no icon
        // could be made, while SetItemImage refuses them and leaves its item as it was.
        for (auto [image, selected] : {std::pair{0, 1}, {0, 2}, {1, -5}}) {
            const bool valid = selected == 1;
            QTreeWidgetItem* item = m_tree->InsertItem(L"x", image, selected, nullptr, nullptr);
            QCOMPARE(!item->icon(0).isNull(), valid);
            int gotImage = 0, gotSelected = 0;
            QCOMPARE(m_tree->GetItemImage(item, gotImage, gotSelected), 1);
            QCOMPARE(QPoint(gotImage, gotSelected), QPoint(image, selected));

            QTreeWidgetItem* other = m_tree->InsertItem(L"y", 5, 6, nullptr, nullptr);
            QCOMPARE(m_tree->SetItemImage(other, image, selected), int(valid));
            m_tree->GetItemImage(other, gotImage, gotSelected);
            QCOMPARE(QPoint(gotImage, gotSelected), valid ? QPoint(image, selected) : QPoint(5, 6));
            QCOMPARE(!other->icon(0).isNull(), valid);
            if (valid) {
                QCOMPARE(iconColor(other->icon(0), QIcon::Normal), QColor(Qt::red));
                QCOMPARE(iconColor(item->icon(0), QIcon::Selected), QColor(Qt::blue));
            }
        }
    }

    void setItemState_data()
    {
        QTest::addColumn<uint>("initial");
        QTest::addColumn<uint>("state");
        QTest::addColumn<uint>("mask");
        QTest::addColumn<uint>("expected");

        QTest::newRow("two-bit mask, one set") << 0x20u << 0u << 0x22u << 0x20u;
        QTest::newRow("two-bit mask, both set") << 0x22u << 0u << 0x22u << 0u;
        QTest::newRow("partial mask still ORs") << 0x02u << 0x40u << 0x22u << 0x42u;
        QTest::newRow("replace all") << 0x22u << 0x10u << 0xFFFFFFFFu << 0x10u;
        QTest::newRow("private collapse") << 0x22u << 0x40u << 1u << 0x02u;
    }

    void setItemState()
    {
        QFETCH(uint, initial);
        QFETCH(uint, state);
        QFETCH(uint, mask);
        QFETCH(uint, expected);

        QTreeWidgetItem* item = m_tree->InsertItem(L"x");
        item->setData(0, KtItemRole::State, initial);
        QSignalSpy changed(m_tree.get(), &QTreeWidget::itemChanged);
        QCOMPARE(m_tree->SetItemState(item, state, mask), 1);
        QCOMPARE(changed.count(), 0); // bookkeeping emits nothing
        QVERIFY(!m_tree->signalsBlocked());
        QCOMPARE(stored(item), expected);
        // Any mask but the state-image mask reads back the whole, unmasked value.
        QCOMPARE(m_tree->GetItemState(item, TVIS_SELECTED), expected);

        // With signals already blocked the write is direct and they stay blocked.
        m_tree->blockSignals(true);
        m_tree->SetItemState(item, initial, 0xFFFFFFFF);
        QVERIFY(m_tree->signalsBlocked());
        m_tree->blockSignals(false);
        QCOMPARE(stored(item), initial);
    }

    void stateImages_data()
    {
        QTest::addColumn<QList<uint>>("states"); // written with TVIS_STATEIMAGEMASK, one per child
        QTest::addColumn<QList<int>>("checks"); // the check state each child gets
        QTest::addColumn<uint>("expected");

        // Image 2 is a partial check, 3 a check, any other image unchecked.
        // clang-format off
        QTest::newRow("all unchecked") << QList<uint>{0x1000, 0x0000, 0x4000} << QList<int>{0, 0, 0} << 0x1000u;
        QTest::newRow("all checked") << QList<uint>{0x3000, 0x3022} << QList<int>{2, 2} << 0x3000u;
        QTest::newRow("partial counts as unchecked") << QList<uint>{0x2000, 0x2000} << QList<int>{1, 1} << 0x1000u;
        QTest::newRow("only a sibling checked") << QList<uint>{0x1000, 0x3000} << QList<int>{0, 2} << 0x2000u;
        // clang-format on
    }

    void stateImages()
    {
        QFETCH(QList<uint>, states);
        QFETCH(QList<int>, checks);
        QFETCH(uint, expected);

        QTreeWidgetItem* parent = m_tree->InsertItem(L"parent");
        QList<QTreeWidgetItem*> children;
        for (int i = 0; i < states.size(); ++i) {
            QTreeWidgetItem* child = m_tree->InsertItem(L"child", parent);
            children << child;
            child->setData(0, KtItemRole::State, 0x20u);
            QCOMPARE(m_tree->SetItemState(child, states[i], 0xF000), 1); // TVIS_STATEIMAGEMASK by its value
            QCOMPARE(child->data(0, Qt::CheckStateRole).toInt(), checks[i]);
            QCOMPARE(child->data(0, KtItemRole::CheckMirror).toInt(), checks[i]);
            QCOMPARE(stored(child), 0x20u); // the stored bits are not touched
            QCOMPARE(m_tree->GetCheck(child), int(checks[i] == Qt::Checked));
            child->setData(0, Qt::CheckStateRole, Qt::Checked); // the visible state does not count
        }
        m_tree->SetCheck(m_tree->InsertItem(L"grandchild", children.first()), 1); // nor do own children

        // The item and its siblings are summed up, whichever of them is asked.
        QCOMPARE(m_tree->GetItemState(children.first(), TVIS_STATEIMAGEMASK), expected);
        QCOMPARE(m_tree->GetItemState(children.last(), TVIS_STATEIMAGEMASK), expected);

        // A top-level item reads its own visible check box.
        m_tree->SetCheck(parent, 0);
        QCOMPARE(m_tree->GetItemState(parent, TVIS_STATEIMAGEMASK), 0x1000u);
        parent->setCheckState(0, Qt::Checked); // as a user click would
        QCOMPARE(m_tree->GetItemState(parent, TVIS_STATEIMAGEMASK), 0x3000u);
        QCOMPARE(m_tree->GetCheck(parent), 0); // the recorded check is unchanged
        parent->setCheckState(0, Qt::PartiallyChecked);
        QCOMPARE(m_tree->GetItemState(parent, TVIS_STATEIMAGEMASK), 0x1000u);
    }

    void navigation()
    {
        QWidget dialog;
        CKtTreeCtrl empty(&dialog);
        QCOMPARE(empty.parentWidget(), nullptr); // the parent argument is not passed on
        QVERIFY(empty.header()->isHidden());
        QCOMPARE(empty.GetRootItem(), empty.invisibleRootItem());
        QCOMPARE(empty.GetChildItem(nullptr), nullptr);

        QTreeWidgetItem* a = m_tree->InsertItem(L"a");
        QTreeWidgetItem* b = m_tree->InsertItem(L"b");
        QList<QTreeWidgetItem*> kids;
        for (int i = 0; i < 20; ++i)
            kids << m_tree->InsertItem(L"kid", a);
        QCOMPARE(m_tree->GetRootItem(), a);
        QCOMPARE(m_tree->GetChildItem(nullptr), a);
        QCOMPARE(m_tree->GetParentItem(a), nullptr);
        QCOMPARE(m_tree->GetPrevSiblingItem(kids[0]), nullptr);
        QCOMPARE(QPoint(m_tree->ItemHasChildren(a), m_tree->ItemHasChildren(b)), QPoint(1, 0));

        // Sibling look-ups stay right while items come and go between them.
        QCOMPARE(m_tree->GetNextSiblingItem(kids[10]), kids[11]);
        m_tree->DeleteItem(kids[11]);
        QCOMPARE(m_tree->GetNextSiblingItem(kids[10]), kids[12]);
        QTreeWidgetItem* inserted = m_tree->InsertItem(L"inserted", 0, 0, a, kids[5]);
        QCOMPARE(m_tree->GetNextSiblingItem(kids[5]), inserted);
        QCOMPARE(m_tree->GetPrevSiblingItem(kids[6]), inserted);
        QCOMPARE(m_tree->GetNextSiblingItem(kids[19]), nullptr);

        // GetNextItem tests bit 0 of the code only: odd codes give the next sibling, even ones
        // nothing. The caret is elsewhere, yet TVGN_CARET walks to the sibling too.
        m_tree->SelectItem(a);
        for (uint code :
            {TVGN_ROOT, TVGN_NEXT, TVGN_PARENT, TVGN_CHILD, TVGN_CARET, TVGN_LASTVISIBLE, 0x101u}) {
            QCOMPARE(m_tree->GetNextItem(kids[0], code), code & 1 ? kids[1] : nullptr);
            QCOMPARE(m_tree->GetNextItem(kids[19], code), nullptr);
        }
    }

    void countsAndGeometry()
    {
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

        tagRECT rect{-1, -1, -1, -1};
        QCOMPARE(m_tree->GetItemRect(a1, &rect, 0), 1); // collapsed: Qt's empty rectangle
        QCOMPARE(asRect(rect), QRect(QPoint(0, 0), QPoint(0, 0)));
        const QRect expected = m_tree->visualItemRect(b);
        QCOMPARE(m_tree->GetItemRect(b, &rect, 1), 1); // the whole item, even for its text only
        QCOMPARE(asRect(rect), QRect(expected.topLeft(), expected.bottomRight() + QPoint(1, 1)));
        QCOMPARE(m_tree->GetItemRect(b, nullptr, 0), 0);
        if (QGuiApplication::platformName() != QLatin1String("offscreen")) { // it crops grabs to the window
            const QPixmap image = m_tree->CreateDragImage(b);
            QCOMPARE(image.size() / image.devicePixelRatio(), expected.size());
        }

        unsigned int flags = 0;
        QCOMPARE(m_tree->HitTest(expected.center(), &flags), b);
        QCOMPARE(flags, 7u);
        QCOMPARE(m_tree->HitTest(QPoint(5, 55), &flags), nullptr); // empty space
        QCOMPARE(m_tree->GetFirstVisibleItem(), a);

        m_tree->expandAll();
        QCOMPARE(m_tree->GetVisibleCount(), 7u); // scrolled out of view still counts
        hidden->setHidden(true);
        QCOMPARE(m_tree->GetVisibleCount(), 5u);
        QCOMPARE(m_tree->EnsureVisible(b), 1); // scrolls b into the viewport
        QVERIFY(m_tree->viewport()->rect().contains(m_tree->visualItemRect(b)));
        QVERIFY(m_tree->GetFirstVisibleItem() != a);
    }

    void selectionEditingAndDeletion()
    {
        m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
        QTreeWidgetItem* a = m_tree->InsertItem(L"a");
        QTreeWidgetItem* b = m_tree->InsertItem(L"b");
        QTreeWidgetItem* c = m_tree->InsertItem(L"c");
        m_tree->InsertItem(L"c1", c);
        a->setSelected(true);
        a->setData(0, KtItemRole::State, TVIS_SELECTED | TVIS_EXPANDED);
        b->setData(0, KtItemRole::State, TVIS_SELECTED); // not selected in Qt: keeps its bit

        QCOMPARE(m_tree->SelectItem(c), 1);
        QCOMPARE(stored(a), TVIS_EXPANDED);
        QCOMPARE(stored(b), TVIS_SELECTED);
        QCOMPARE(stored(c), TVIS_SELECTED);

        QCOMPARE(m_tree->Select(a, TVGN_DROPHILITE), 0);
        QCOMPARE(m_tree->GetSelectedItem(), c);
        QCOMPARE(m_tree->Select(a, TVGN_CARET), 1);
        QCOMPARE(m_tree->GetSelectedItem(), a);
        QCOMPARE(stored(c), 0u);
        QCOMPARE(m_tree->SelectItem(nullptr), 1);
        QCOMPARE(m_tree->GetSelectedItem(), nullptr);

        b->setFlags(b->flags() & ~(Qt::ItemIsDropEnabled | Qt::ItemIsEditable));
        QCOMPARE(m_tree->SelectDropTarget(b), 1);
        QVERIFY(b->flags() & Qt::ItemIsDropEnabled);

        m_tree->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_tree.get()));
        QSignalSpy changed(m_tree.get(), &QTreeWidget::itemChanged);
        QCOMPARE(m_tree->EditLabel(b), 1);
        QVERIFY(b->flags() & Qt::ItemIsEditable);
        QCOMPARE(changed.count(), 0); // the flag is set with signals blocked
        QTRY_VERIFY(m_tree->viewport()->findChild<QLineEdit*>());

        QCOMPARE(m_tree->SetCheck(c, 5), 1);
        QCOMPARE(m_tree->GetCheck(c), 1);
        QCOMPARE(c->checkState(0), Qt::Checked);
        c->setCheckState(0, Qt::Unchecked); // a user toggle changes the visible state only
        QCOMPARE(m_tree->GetCheck(c), 1);

        // The selected, current item goes with its child and its item widget, unheard.
        QPointer<QLabel> label = new QLabel(QStringLiteral("widget"));
        m_tree->setItemWidget(c, 0, label);
        m_tree->SelectItem(c);
        QSignalSpy current(m_tree.get(), &QTreeWidget::currentItemChanged);
        QSignalSpy selection(m_tree.get(), &QTreeWidget::itemSelectionChanged);
        QCOMPARE(m_tree->DeleteItem(c), 1);
        QCOMPARE(current.count() + selection.count(), 0);
        QCOMPARE(m_tree->GetCount(), 2u);
        QTRY_VERIFY(label.isNull());
        m_tree->blockSignals(true); // unblocked afterwards, not restored
        m_tree->DeleteItem(a);
        QVERIFY(!m_tree->signalsBlocked());
    }

    void expand()
    {
        // Bit 1 expands (TVE_TOGGLE never collapses); else bit 0 collapses; else the item expands.
        const std::tuple<uint, bool, bool> cases[]
            = {{TVE_COLLAPSE, true, false}, {TVE_TOGGLE, true, true}, {TVE_COLLAPSERESET, false, true},
                {TVE_COLLAPSE | TVE_COLLAPSERESET, true, false}}; // code, before, after
        for (const auto& [code, startExpanded, expanded] : cases) {
            QTreeWidgetItem* item = m_tree->InsertItem(L"parent");
            m_tree->InsertItem(L"child", item);
            item->setExpanded(startExpanded);
            item->setData(0, KtItemRole::State, (startExpanded ? TVIS_EXPANDED : 0u) | TVIS_SELECTED);
            QCOMPARE(m_tree->Expand(item, code), 1);
            QVERIFY2(item->isExpanded() == expanded, qPrintable(QString::number(code)));
            QCOMPARE(stored(item), (expanded ? TVIS_EXPANDED : 0u) | TVIS_SELECTED);
        }

        QTreeWidgetItem* leaf = m_tree->InsertItem(L"leaf");
        QCOMPARE(m_tree->ExpandAllChild(leaf, TVE_EXPAND), 1); // a leaf is left untouched
        QVERIFY(!leaf->data(0, KtItemRole::State).isValid());
        QCOMPARE(m_tree->Expand(leaf, TVE_EXPAND), 1); // while Expand records it
        QCOMPARE(stored(leaf), TVIS_EXPANDED);

        // A slot run during the walk may delete a branch still to be visited.
        QTreeWidgetItem* root = m_tree->InsertItem(L"root");
        QTreeWidgetItem* branch = m_tree->InsertItem(L"branch", root);
        QTreeWidgetItem* twig = m_tree->InsertItem(L"twig", branch);
        QTreeWidgetItem* end = m_tree->InsertItem(L"end", twig);
        QTreeWidgetItem* doomed = m_tree->InsertItem(L"doomed", root);
        m_tree->InsertItem(L"doomed leaf", doomed);
        QTreeWidgetItem* sideLeaf = m_tree->InsertItem(L"side leaf", root);
        connect(m_tree.get(), &QTreeWidget::itemExpanded, this, [&](QTreeWidgetItem* item) {
            if (item == twig)
                delete doomed;
        });

        QCOMPARE(m_tree->ExpandAllChild(root, TVE_TOGGLE), 1);
        QCOMPARE(texts(root), (QStringList{"branch", "side leaf"}));
        for (QTreeWidgetItem* item : {root, branch, twig}) {
            QVERIFY(item->isExpanded());
            QCOMPARE(stored(item), TVIS_EXPANDED);
        }
        for (QTreeWidgetItem* item : {end, sideLeaf})
            QVERIFY(!item->data(0, KtItemRole::State).isValid());

        QCOMPARE(m_tree->ExpandAllChild(branch, TVE_COLLAPSE), 1);
        QVERIFY(root->isExpanded());
        QVERIFY(!branch->isExpanded() && !twig->isExpanded());
        QCOMPARE(stored(twig), 0u);
    }

    void expandAllAndCollapseAll()
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
        QVERIFY(!s1->data(0, KtItemRole::State).isValid());

        m_tree->Expand(second, TVE_EXPAND);
        QTreeWidgetItem* fresh = m_tree->InsertItem(L"fresh", f1);
        QSignalSpy changed(m_tree.get(), &QTreeWidget::itemChanged);
        m_tree->CollapseAll();
        QCOMPARE(changed.count(), 3); // written without a blocker: one signal per descendant
        for (QTreeWidgetItem* item : {first, f1, second, s1})
            QVERIFY(!item->isExpanded());
        QCOMPARE(stored(f1), 0u);
        QCOMPARE(stored(f11), TVIS_SELECTED);
        QCOMPARE(stored(second), TVIS_EXPANDED);
        QCOMPARE(fresh->data(0, KtItemRole::State), QVariant(0u)); // absent becomes a stored 0

        m_tree->DeleteAllItems();
        m_tree->ExpandAll(); // the empty tree's root is the invisible root item
        m_tree->CollapseAll();
        QCOMPARE(m_tree->GetCount(), 0u);
    }

    void deadHandles_data()
    {
        // Each row builds a, a/a1, a/a2, b and hands out a handle that is no item of the tree.
        QTest::addColumn<HandleMaker>("make");
        QTest::addColumn<int>("itemsLeft");
        const auto pseudo = [](QTreeWidgetItem* h) { return HandleMaker([h](CKtTreeCtrl&) { return h; }); };
        // clang-format off
        QTest::newRow("null") << pseudo(nullptr) << 4;
        QTest::newRow("TVI_ROOT") << pseudo(TVI_ROOT) << 4;
        QTest::newRow("DeleteItem") << HandleMaker([](CKtTreeCtrl& t) { auto* h = t.topLevelItem(1); t.DeleteItem(h); return h; }) << 3;
        QTest::newRow("child of a deleted item") << HandleMaker([](CKtTreeCtrl& t) { auto* h = t.topLevelItem(0)->child(1); t.DeleteItem(t.topLevelItem(0)); return h; }) << 1;
        QTest::newRow("DeleteAllItems") << HandleMaker([](CKtTreeCtrl& t) { auto* h = t.topLevelItem(0)->child(0); t.DeleteAllItems(); return h; }) << 0;
        QTest::newRow("Qt takeChildren") << HandleMaker([](CKtTreeCtrl& t) { const auto taken = t.topLevelItem(0)->takeChildren(); qDeleteAll(taken); return taken.at(1); }) << 2;
        QTest::newRow("taken, not deleted") << HandleMaker([](CKtTreeCtrl& t) { static std::unique_ptr<QTreeWidgetItem> keep; keep.reset(t.takeTopLevelItem(1)); return keep.get(); }) << 3;
        QTest::newRow("item of another tree") << HandleMaker([](CKtTreeCtrl&) { static CKtTreeCtrl other(nullptr); other.clear(); return other.InsertItem(L"x"); }) << 4;
        // clang-format on
    }

    void deadHandles()
    {
        QFETCH(HandleMaker, make);
        QFETCH(int, itemsLeft);
        m_tree->AppendItemImage(solid(Qt::red));
        QTreeWidgetItem* a = m_tree->InsertItem(L"a", 0, 0, nullptr, nullptr);
        m_tree->InsertItem(L"a1", a);
        m_tree->InsertItem(L"a2", a);
        m_tree->InsertItem(L"b");
        QTreeWidgetItem* dead = make(*m_tree);
        QCOMPARE(int(m_tree->GetCount()), itemsLeft);

        // Every call gives what it gives for a null item, and the tree stays as it was.
        int image = 3, selected = 3;
        tagRECT rect{1, 2, 3, 4};
        QCOMPARE(m_tree->GetItemImage(dead, image, selected), 0);
        QCOMPARE(QPoint(image, selected), QPoint(-1, -1));
        QCOMPARE(m_tree->GetItemRect(dead, &rect, 0), 1);
        QCOMPARE(asRect(rect), QRect(QPoint(0, 0), QPoint(0, 0)));
        QCOMPARE(m_tree->GetItemText(dead).length(), 0);
        QCOMPARE(m_tree->GetItemData(dead), 0ull);
        QCOMPARE(m_tree->GetItemState(dead, TVIS_STATEIMAGEMASK), 0u);
        const int zeros[] = {m_tree->SetItemText(dead, L"x"), m_tree->SetItemImage(dead, 0, 0),
            m_tree->SetItemData(dead, 1), m_tree->SetItemState(dead, 2, 2), m_tree->ItemHasChildren(dead),
            m_tree->SelectDropTarget(dead), m_tree->EnsureVisible(dead), m_tree->EditLabel(dead),
            m_tree->Expand(dead, TVE_EXPAND), m_tree->ExpandAllChild(dead, TVE_EXPAND),
            m_tree->SetCheck(dead, 1), m_tree->GetCheck(dead)};
        for (int result : zeros)
            QCOMPARE(result, 0);
        QCOMPARE(m_tree->GetParentItem(dead), nullptr);
        QCOMPARE(m_tree->GetNextSiblingItem(dead), nullptr);
        QCOMPARE(m_tree->GetPrevSiblingItem(dead), nullptr);
        QCOMPARE(m_tree->GetNextItem(dead, TVGN_NEXT), nullptr);
        QCOMPARE(m_tree->GetChildItem(dead), m_tree->topLevelItem(0));
        QCOMPARE(m_tree->Select(dead, TVGN_CARET), 1);
        QCOMPARE(m_tree->GetSelectedItem(), nullptr);
        QCOMPARE(m_tree->DeleteItem(dead), 1);
        QCOMPARE(int(m_tree->GetCount()), itemsLeft);
        // As a parent it means the top level; as the item to insert after, the end.
        QTreeWidgetItem* inserted = m_tree->InsertItem(L"new", 0, 0, dead, dead);
        QCOMPARE(m_tree->topLevelItem(m_tree->topLevelItemCount() - 1), inserted);
        QCOMPARE(m_tree->GetItemText(inserted), KtString(L"new"));
    }

private:
    std::unique_ptr<CKtTreeCtrl> m_tree;
};

QTEST_MAIN(TestCKtTreeCtrl)
#include "tst_ckttreectrl.moc"
