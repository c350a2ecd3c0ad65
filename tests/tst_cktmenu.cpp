// Tests of CKtMenu: the command-id registry, the flag words of adding,
// removing, checking and enabling, and the modal pop-up.

#include <CKtMenu>

#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <memory>

using Ids = QList<unsigned int>;

namespace {

// One token per action: "-" separator, ">id" sub-menu, "id" item, "?" an item without identifier.
QStringList layout(const QMenu& menu)
{
    QStringList tokens;
    for (const QAction* action : menu.actions()) {
        const QVariant id = action->property("MenuItemIdx");
        tokens << (action->isSeparator()
                ? QString("-")
                : (action->menu() ? ">" : "") + (id.isValid() ? id.toString() : "?"));
    }
    return tokens;
}

void fill(CKtMenu& menu, const Ids& ids)
{
    for (unsigned int id : ids)
        menu.AppendMenu(MF_STRING, id, L"item");
}

class OverridingMenu : public CKtMenu
{
public:
    int AttachDefault(QWidget* pWnd) override
    {
        calls << pWnd;
        return 1;
    }
    QList<QWidget*> calls;
};

} // namespace

class TestCKtMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_menu = std::make_unique<CKtMenu>(); }
    void cleanup() { m_menu.reset(); }

    void construction();
    void appendFlags_data();
    void appendFlags();
    void insertByPosition_data();
    void insertByPosition();
    void removeAndDelete_data();
    void removeAndDelete();
    void queries();
    void subMenuForms();
    void checkMenuItem();
    void checkMenuRadioItem_data();
    void checkMenuRadioItem();
    void enableMenuItem_data();
    void enableMenuItem();
    void trackPopupMenu_data();
    void trackPopupMenu();

private:
    std::unique_ptr<CKtMenu> m_menu;
};

void TestCKtMenu::construction()
{
    const QString style(" \t\t  QMenu::separator { \t\t  height: 2px; \t\t  } ");
    QCOMPARE(m_menu->styleSheet(), style);
    QCOMPARE(m_menu->styleSheet().size(), 47);
    QWidget parent;
    QCOMPARE(CKtMenu(&parent).parentWidget(), &parent);

    const QMetaMethod signal = QMetaMethod::fromSignal(&CKtMenu::commandId);
    QCOMPARE(signal.methodSignature(), QByteArray("commandId(UINT)"));
    QCOMPARE(signal.parameterType(0), int(QMetaType::UInt));

    // The constructor runs the base AttachDefault(); CreatePopupMenu() runs the override, with null.
    OverridingMenu overriding;
    QCOMPARE(overriding.styleSheet(), style);
    QCOMPARE(overriding.CreatePopupMenu(), 1);
    QCOMPARE(overriding.calls, QList<QWidget*>{nullptr});
}

void TestCKtMenu::appendFlags_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<QString>("token");

    QTest::newRow("MF_STRING") << MF_STRING << "7";
    QTest::newRow("state flags ignored") << (MF_CHECKED | MF_GRAYED | MF_DISABLED) << "7";
    QTest::newRow("MF_OWNERDRAW|MF_BITMAP") << (MF_OWNERDRAW | MF_BITMAP) << "7";
    QTest::newRow("MF_POPUP") << MF_POPUP << ">7";
    QTest::newRow("MF_POPUP|MF_SEPARATOR") << (MF_POPUP | MF_SEPARATOR) << ">7";
    QTest::newRow("MF_SEPARATOR|MF_CHECKED") << (MF_SEPARATOR | MF_CHECKED) << "-";
}

void TestCKtMenu::appendFlags()
{
    QFETCH(unsigned int, flags);
    QFETCH(QString, token);

    QCOMPARE(m_menu->AppendMenu(flags, 7, L"Zoom 缩放"), 1);
    QCOMPARE(layout(*m_menu), QStringList{token});
    const QAction* action = m_menu->actions().constFirst();
    QVERIFY(action->isEnabled() && !action->isChecked());
    QCOMPARE(m_menu->GetMenuItemPos(7), token == "-" ? -1 : 0); // separators are not registered
    QCOMPARE(m_menu->GetSubMenu(7) != nullptr, token == ">7");
    if (token != "-") {
        QCOMPARE(action->text(), QString("Zoom 缩放"));
        QCOMPARE(action->property("MenuItemIdx").userType(), int(QMetaType::LongLong));
    }
}

void TestCKtMenu::insertByPosition_data()
{
    QTest::addColumn<unsigned int>("position");
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<QString>("textLayout");
    QTest::addColumn<bool>("pixmapInserts"); // the pixmap form has no fall-back to appending

    QTest::newRow("by command") << 0u << MF_STRING << "1 2 3" << false;
    QTest::newRow("first") << 0u << MF_BYPOSITION << "9 1 2 3" << true;
    QTest::newRow("one past the end") << 3u << MF_BYPOSITION << "1 2 3 9" << false;
    QTest::newRow("unsigned -1") << 0xFFFFFFFFu << MF_BYPOSITION << "1 2 3 9" << false;
    QTest::newRow("separator") << 1u << (MF_BYPOSITION | MF_SEPARATOR) << "1 - 2 3" << true;
    QTest::newRow("popup inside: plain") << 1u << (MF_BYPOSITION | MF_POPUP) << "1 9 2 3" << true;
    QTest::newRow("popup past the end") << 5u << (MF_BYPOSITION | MF_POPUP) << "1 2 3 >9" << false;
}

void TestCKtMenu::insertByPosition()
{
    QFETCH(unsigned int, position);
    QFETCH(unsigned int, flags);
    QFETCH(QString, textLayout);
    QFETCH(bool, pixmapInserts);

    const QStringList expected = textLayout.split(' ');
    fill(*m_menu, {1, 2, 3});
    QCOMPARE(m_menu->InsertMenu(position, flags, 9, L"nine"), int(flags != MF_STRING));
    QCOMPARE(layout(*m_menu), expected);
    QCOMPARE(m_menu->GetMenuItemPos(9), std::max(expected.indexOf("9"), expected.indexOf(">9")));

    CKtMenu pixmapMenu;
    fill(pixmapMenu, {1, 2, 3});
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    QCOMPARE(pixmapMenu.InsertMenu(position, flags, 9, pixmap), int(pixmapInserts));
    QCOMPARE(layout(pixmapMenu), pixmapInserts ? expected : QString("1 2 3").split(' '));
    if (const int at = pixmapMenu.GetMenuItemPos(9); at >= 0) {
        const QAction* action = pixmapMenu.actions().at(at);
        QVERIFY(action->text().isEmpty());
        for (QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
            QCOMPARE(action->icon().pixmap(16, 16, mode).toImage().pixelColor(8, 8), QColor(Qt::red));
    }

    // On an empty menu the text form appends and the pixmap form refuses.
    CKtMenu empty;
    QCOMPARE(empty.InsertMenu(0, flags, 5, pixmap), 0);
    QCOMPARE(empty.InsertMenu(0, flags, 4, L"x"), int(flags != MF_STRING));
    QCOMPARE(empty.actions().size(), int(flags != MF_STRING));
}

void TestCKtMenu::removeAndDelete_data()
{
    QTest::addColumn<bool>("remove");
    QTest::addColumn<unsigned long>("item");
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("remaining");

    QTest::newRow("remove last") << true << 2ul << MF_BYPOSITION << 1 << "1 2";
    QTest::newRow("remove past end") << true << 3ul << MF_BYPOSITION << 0 << "1 2 3";
    QTest::newRow("remove by command") << true << 2ul << MF_BYCOMMAND << 0 << "1 2 3";
    QTest::newRow("delete by position") << false << 0ul << MF_BYPOSITION << 0 << "2 3";
    QTest::newRow("delete, wrapping position") << false << 0x100000000ul << MF_BYPOSITION << 0 << "1 2 3";
    QTest::newRow("delete by command") << false << 2ul << MF_BYCOMMAND << 1 << "1 3";
    QTest::newRow("delete unknown command") << false << 8ul << MF_BYCOMMAND << 0 << "1 2 3";
}

void TestCKtMenu::removeAndDelete()
{
    QFETCH(bool, remove);
    QFETCH(unsigned long, item);
    QFETCH(unsigned int, flags);
    QFETCH(int, result);
    QFETCH(QString, remaining);

    fill(*m_menu, {1, 2, 3});
    QCOMPARE(remove ? m_menu->RemoveMenu(unsigned(item), flags) : m_menu->DeleteMenu(item, flags), result);
    const QStringList expected = remaining.split(' ');
    QCOMPARE(layout(*m_menu), expected);
    for (unsigned int id : {1u, 2u, 3u}) {
        // Removed actions live on and stay registered, but have no position.
        KtString text;
        QCOMPARE(m_menu->GetMenuString(id, text, MF_BYCOMMAND), 4);
        QCOMPARE(m_menu->GetMenuItemPos(id), expected.indexOf(QString::number(id)));
    }
    CKtMenu empty;
    QCOMPARE(empty.RemoveMenu(0, MF_BYPOSITION) + empty.DeleteMenu(0, MF_BYCOMMAND), 0);
}

void TestCKtMenu::queries()
{
    m_menu->AppendMenu(MF_STRING, 1, L"&Open…");
    m_menu->AppendMenu(MF_SEPARATOR);
    m_menu->AppendMenu(MF_STRING, 2, L"雪\U0001D11E"); // one character outside the BMP
    m_menu->AppendMenu(MF_POPUP, 3, L"Popup");
    QMenu* added = m_menu->addMenu(QIcon(), "Added", 4);
    QAction* doomed = m_menu->addAction(QIcon(), "Doomed", 5);
    m_menu->InsertMenu(0, MF_BYPOSITION, 6, L"Orphan");

    QCOMPARE(m_menu->GetMenuItemPos(2), 3); // the separator counts
    QCOMPARE(m_menu->GetMenuItemPos(4), -1); // registered as a menu, not an action
    QCOMPARE(m_menu->GetMenuItemPos(99), -1);
    KtString text(L"kept");
    QCOMPARE(m_menu->GetMenuString(4, text, 0) + m_menu->GetMenuString(99, text, 0), 0);
    QCOMPARE(text, KtString(L"kept"));
    QCOMPARE(m_menu->GetMenuString(1, text, MF_BYPOSITION), 6);
    QCOMPARE(text, KtString(L"&Open…"));
    QCOMPARE(m_menu->GetMenuString(2, text, 0), 2); // in wide characters

    QCOMPARE(m_menu->GetSubMenu(3)->title(), QString("Popup"));
    QCOMPARE(m_menu->GetSubMenu(4), added);
    QCOMPARE(m_menu->GetSubMenu(1), nullptr);
    QCOMPARE(m_menu->GetSubMenu(0), nullptr); // an identifier, not position 0
    QCOMPARE(m_menu->EnableMenuItem(0, MF_GRAYED), -1); // the null entry it left is no action

    // A deleted action is forgotten rather than left dangling.
    delete doomed;
    QCOMPARE(m_menu->GetMenuItemPos(5) + m_menu->EnableMenuItem(5, MF_GRAYED), -2);
    QCOMPARE(m_menu->GetMenuString(5, text, 0) + m_menu->CheckMenuItem(5, MF_CHECKED), 0);
    // Items inserted by position have no parent, yet go with the menu, even once removed.
    QPointer<QAction> orphan = m_menu->actions().constFirst();
    QCOMPARE(orphan->parent(), nullptr);
    m_menu->RemoveMenu(0, MF_BYPOSITION);
    m_menu.reset();
    QVERIFY(orphan.isNull());
}

void TestCKtMenu::subMenuForms()
{
    CKtMenu sub1, sub2, sub3;
    KtString title(L"Sub"), empty;
    QCOMPARE(m_menu->AppendMenu(nullptr, title, 10) + m_menu->AppendMenu(&sub1, empty, 10), 0);
    QCOMPARE(m_menu->AppendMenu(m_menu.get(), title, 10), 0);
    m_menu->AppendMenu(MF_STRING, 1, L"one");
    QCOMPARE(m_menu->checkExit(&sub1), 0);
    QCOMPARE(m_menu->InsertMenu(&sub1, title, 10, 1), 1);
    QCOMPARE(layout(*m_menu), (QStringList{">10", "1"}));
    QCOMPARE(m_menu->GetSubMenu(10), static_cast<QMenu*>(&sub1));
    QCOMPARE(sub1.title(), QString("Sub"));

    // Once a sub-menu is there these forms add nothing, whichever menu is offered.
    QCOMPARE(m_menu->checkExit(&sub1) + m_menu->checkExit(&sub2), 2);
    QCOMPARE(m_menu->AppendMenu(&sub2, title, 11) + m_menu->InsertMenu(&sub2, title, 11, 1, QIcon()), 0);
    // The other ways of adding sub-menus are not limited.
    m_menu->AppendMenu(MF_POPUP, 12, L"popup");
    m_menu->addMenu(QIcon(), "added", 13);
    QCOMPARE(layout(*m_menu), (QStringList{">10", "1", ">12", ">13"}));

    // Before an unknown identifier the sub-menu goes last; no menu may hold its ancestor.
    QCOMPARE(sub2.InsertMenu(&sub3, title, 20, 999), 1);
    QCOMPARE(sub3.AppendMenu(&sub2, title, 21) + sub1.AppendMenu(m_menu.get(), title, 22), 0);
}

void TestCKtMenu::checkMenuItem()
{
    fill(*m_menu, {1, 2, 3});
    const QList<int> previous{0, 1, 1, 0};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(m_menu->CheckMenuItem(2, i < 2 ? MF_CHECKED : MF_UNCHECKED), previous[i]);
    QCOMPARE(m_menu->CheckMenuItem(2, MF_BYPOSITION | MF_CHECKED), 0);
    QVERIFY(m_menu->actions().at(2)->isChecked() && !m_menu->actions().at(1)->isChecked());
    QCOMPARE(m_menu->CheckMenuItem(9, MF_CHECKED) + m_menu->CheckMenuItem(3, MF_BYPOSITION | MF_CHECKED), 0);
    QVERIFY(!m_menu->actions().at(0)->isCheckable());
}

void TestCKtMenu::checkMenuRadioItem_data()
{
    QTest::addColumn<Ids>("args"); // first, last, item, flags
    QTest::addColumn<int>("result");
    QTest::addColumn<QList<bool>>("checked"); // items 10 to 13; 11 and 13 start checked

    const QList<bool> untouched{false, true, false, true};
    QTest::newRow("by command") << Ids{10, 13, 12, MF_BYCOMMAND} << 1
                                << QList<bool>{false, false, true, true};
    QTest::newRow("by position") << Ids{0, 3, 0, MF_BYPOSITION} << 1 << QList<bool>{true, false, false, true};
    QTest::newRow("item outside") << Ids{10, 12, 13, MF_BYCOMMAND} << 1
                                  << QList<bool>{false, false, false, true};
    QTest::newRow("first after last") << Ids{13, 10, 12, MF_BYCOMMAND} << 1 << untouched;
    QTest::newRow("unknown item") << Ids{10, 13, 99, MF_BYCOMMAND} << 0 << untouched;
    QTest::newRow("position -1") << Ids{0, 0xFFFFFFFF, 0, MF_BYPOSITION} << 0 << untouched;
    QTest::newRow("last past end") << Ids{2, 50, 3, MF_BYPOSITION} << 1
                                   << QList<bool>{false, true, false, true};
}

void TestCKtMenu::checkMenuRadioItem()
{
    QFETCH(Ids, args);
    QFETCH(int, result);
    QFETCH(QList<bool>, checked);

    fill(*m_menu, {10, 11, 12, 13});
    m_menu->CheckMenuItem(11, MF_CHECKED);
    m_menu->CheckMenuItem(13, MF_CHECKED);
    QCOMPARE(m_menu->CheckMenuRadioItem(args[0], args[1], args[2], args[3]), result);
    QList<bool> states;
    for (const QAction* action : m_menu->actions())
        states << action->isChecked();
    QCOMPARE(states, checked);
}

void TestCKtMenu::enableMenuItem_data()
{
    QTest::addColumn<unsigned int>("item");
    QTest::addColumn<Ids>("flagWords");
    QTest::addColumn<QList<int>>("results");

    QTest::newRow("MF_ENABLED by command: no-op")
        << 42u << Ids{MF_ENABLED, MF_GRAYED, MF_ENABLED} << QList<int>{-1, 0, -1};
    QTest::newRow("disable, enable by another bit")
        << 42u << Ids{MF_DISABLED, MF_DISABLED, MF_CHECKED, MF_CHECKED} << QList<int>{0, 3, 3, 0};
    QTest::newRow("by position") << 1u << Ids{MF_BYPOSITION | MF_GRAYED, MF_BYPOSITION, MF_BYPOSITION}
                                 << QList<int>{0, 3, 0};
    QTest::newRow("position past end") << 3u << Ids{MF_BYPOSITION | MF_GRAYED} << QList<int>{-1};
    QTest::newRow("unknown command") << 7u << Ids{MF_GRAYED} << QList<int>{-1};
    QTest::newRow("registered by addMenu") << 5u << Ids{MF_GRAYED} << QList<int>{-1};
}

void TestCKtMenu::enableMenuItem()
{
    QFETCH(unsigned int, item);
    QFETCH(Ids, flagWords);
    QFETCH(QList<int>, results);

    fill(*m_menu, {41, 42});
    m_menu->addMenu(QIcon(), "menu", 5)->setEnabled(false);
    for (int i = 0; i < flagWords.size(); ++i)
        QCOMPARE(m_menu->EnableMenuItem(item, flagWords[i]), results[i]);
    QVERIFY(m_menu->actions().at(0)->isEnabled());
}

void TestCKtMenu::trackPopupMenu_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("result");
    QTest::addColumn<QVariantList>("emitted");

    QTest::newRow("choose 42") << QList<int>{Qt::Key_Down, Qt::Key_Return} << 1 << QVariantList{42u};
    QTest::newRow("escape") << QList<int>{Qt::Key_Escape} << 0 << QVariantList{};
    QTest::newRow("no identifier") << QList<int>{Qt::Key_Down, Qt::Key_Down, Qt::Key_Return} << 0
                                   << QVariantList{};
    QTest::newRow("in a sub-menu") << QList<int>{Qt::Key_Up, Qt::Key_Right, Qt::Key_Return} << 1
                                   << QVariantList{7u};
}

void TestCKtMenu::trackPopupMenu()
{
    QFETCH(QList<int>, keys);
    QFETCH(int, result);
    QFETCH(QVariantList, emitted);

    m_menu->AppendMenu(MF_STRING, 42, L"Forty-two");
    m_menu->addAction("No identifier");
    auto* sub = new CKtMenu(m_menu.get());
    sub->AppendMenu(MF_STRING, 7, L"Seven");
    KtString title(L"More");
    m_menu->AppendMenu(sub, title, 8);
    QSignalSpy spy(m_menu.get(), &CKtMenu::commandId);

    // exec() blocks: the keys are typed from inside its event loop.
    QWidget* shown = nullptr;
    QPoint shownAt;
    QTimer::singleShot(0, this, [&] {
        shown = QApplication::activePopupWidget();
        shownAt = shown ? shown->pos() : QPoint();
        for (int key : keys)
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key(key));
    });
    QTimer rescue; // never stay stuck in the menu's loop
    connect(&rescue, &QTimer::timeout, this, [] {
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    });
    rescue.start(5000);

    QCOMPARE(m_menu->TrackPopupMenu(TPM_RETURNCMD, 100, 50, nullptr), result);
    QCOMPARE(shown, static_cast<QWidget*>(m_menu.get()));
    QCOMPARE(shownAt, QPoint(102, 52));
    QCOMPARE(spy.size(), emitted.size());
    if (!emitted.isEmpty())
        QCOMPARE(spy.at(0).at(0), emitted.at(0));
    QVERIFY(!m_menu->isVisible());
}

QTEST_MAIN(TestCKtMenu)
#include "tst_cktmenu.moc"
