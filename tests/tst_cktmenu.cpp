// Tests of CKtMenu: the command-id registry, the flag words of adding,
// removing, checking and enabling, and the modal pop-up.

#include <CKtMenu>

#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <memory>

using Call = std::function<int(CKtMenu&, const QPixmap&)>;
Q_DECLARE_METATYPE(Call)
// A call on the menu under test, kept in a table cell.
#define CALL(call) Call([](CKtMenu& m, [[maybe_unused]] const QPixmap& red) { return m.call; })

const wchar_t* const kText = L"Zoom 缩放";

namespace {

// One token per action: "-" separator, ">id" sub-menu, "id" item, "?" an item without identifier;
// then "x" checked or "o" checkable, and "!" disabled.
QStringList layout(const QMenu& menu)
{
    QStringList tokens;
    for (const QAction* action : menu.actions()) {
        const QVariant id = action->property("MenuItemIdx");
        if (action->isSeparator()) {
            tokens << "-";
            continue;
        }
        QString token = (action->menu() ? ">" : "") + (id.isValid() ? id.toString() : "?");
        if (action->isCheckable())
            token += action->isChecked() ? "x" : "o";
        tokens << token + (action->isEnabled() ? "" : "!");
    }
    return tokens;
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

    std::unique_ptr<CKtMenu> m_menu;

private Q_SLOTS:
    void init() { m_menu = std::make_unique<CKtMenu>(); }
    void cleanup() { m_menu.reset(); }

    void construction()
    {
        const QMetaMethod signal = QMetaMethod::fromSignal(&CKtMenu::commandId);
        QCOMPARE(signal.methodSignature(), QByteArray("commandId(UINT)"));

        // The constructor runs the base AttachDefault(); CreatePopupMenu() runs the override, with null.
        OverridingMenu overriding;
        QVERIFY(overriding.styleSheet().contains("QMenu::separator"));
        QCOMPARE(overriding.CreatePopupMenu(), 1);
        QCOMPARE(overriding.calls, QList<QWidget*>{nullptr});
    }

    void flagWords_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("expected"); // layout() after the call
        QTest::addColumn<Call>("call");

        // Items 1, 2 (checked) and 3 (disabled); new items get the identifier 9.
        auto add = [](const char* name, int result, const QString& expected, Call call) {
            QTest::newRow(name) << result << expected << call;
        };
        const QString untouched("1 2x 3!");
        // clang-format off
        add("append: state and kind flags ignored", 1, "1 2x 3! 9", CALL(AppendMenu(MF_CHECKED | MF_GRAYED | MF_OWNERDRAW | MF_BITMAP, 9, kText)));
        add("append: MF_POPUP wins over MF_SEPARATOR", 1, "1 2x 3! >9", CALL(AppendMenu(MF_POPUP | MF_SEPARATOR, 9, kText)));
        add("append MF_SEPARATOR|MF_CHECKED", 1, "1 2x 3! -", CALL(AppendMenu(MF_SEPARATOR | MF_CHECKED, 9, kText)));
        add("insert by command", 0, untouched, CALL(InsertMenu(0, MF_STRING, 9, kText)));
        add("insert first", 1, "9 1 2x 3!", CALL(InsertMenu(0, MF_BYPOSITION, 9, kText)));
        add("insert a separator", 1, "1 - 2x 3!", CALL(InsertMenu(1, MF_BYPOSITION | MF_SEPARATOR, 9, kText)));
        add("insert a popup inside: plain", 1, "1 9 2x 3!", CALL(InsertMenu(1, MF_BYPOSITION | MF_POPUP, 9, kText)));
        add("insert a popup past the end", 1, "1 2x 3! >9", CALL(InsertMenu(5, MF_BYPOSITION | MF_POPUP, 9, kText)));
        // The pixmap form has no fall-back to appending.
        add("pixmap by command", 0, untouched, CALL(InsertMenu(0, MF_STRING, 9, red)));
        add("pixmap first", 1, "9 1 2x 3!", CALL(InsertMenu(0, MF_BYPOSITION, 9, red)));
        add("pixmap one past the end", 0, untouched, CALL(InsertMenu(3, MF_BYPOSITION, 9, red)));
        add("pixmap separator", 1, "1 - 2x 3!", CALL(InsertMenu(1, MF_BYPOSITION | MF_SEPARATOR, 9, red)));
        // Removed items live on and stay registered, but have no position.
        add("remove last", 1, "1 2x", CALL(RemoveMenu(2, MF_BYPOSITION)));
        add("remove past the end", 0, untouched, CALL(RemoveMenu(3, MF_BYPOSITION)));
        add("remove by command", 0, untouched, CALL(RemoveMenu(2, MF_BYCOMMAND)));
        add("delete by position", 0, "2x 3!", CALL(DeleteMenu(0, MF_BYPOSITION)));
        add("delete, wrapping position", 0, untouched, CALL(DeleteMenu(0x100000000ul, MF_BYPOSITION)));
        add("delete by command", 1, "1 3!", CALL(DeleteMenu(2, MF_BYCOMMAND)));
        add("delete unknown command", 0, untouched, CALL(DeleteMenu(8, MF_BYCOMMAND)));
        // CheckMenuItem returns the previous state and makes the item checkable.
        add("uncheck", 1, "1 2o 3!", CALL(CheckMenuItem(2, MF_UNCHECKED)));
        add("uncheck an unchecked item", 0, "1o 2x 3!", CALL(CheckMenuItem(1, MF_UNCHECKED)));
        add("check by position", 0, "1x 2x 3!", CALL(CheckMenuItem(0, MF_BYPOSITION | MF_CHECKED)));
        add("check unknown command", 0, untouched, CALL(CheckMenuItem(9, MF_CHECKED)));
        add("check past the end", 0, untouched, CALL(CheckMenuItem(3, MF_BYPOSITION | MF_CHECKED)));
        // The radio range stops before its last item.
        add("radio by command", 1, "1o 2x 3!", CALL(CheckMenuRadioItem(1, 3, 2, MF_BYCOMMAND)));
        add("radio by position", 1, "1x 2o 3!", CALL(CheckMenuRadioItem(0, 2, 0, MF_BYPOSITION)));
        add("radio first after last", 1, untouched, CALL(CheckMenuRadioItem(3, 1, 2, MF_BYCOMMAND)));
        add("radio unknown item", 0, untouched, CALL(CheckMenuRadioItem(1, 3, 99, MF_BYCOMMAND)));
        add("radio last past the end", 1, "1 2o 3x!", CALL(CheckMenuRadioItem(1, 50, 2, MF_BYPOSITION)));
        // EnableMenuItem returns the previous state: MF_ENABLED (0) or MF_GRAYED|MF_DISABLED (3).
        add("enable by command: no-op", -1, untouched, CALL(EnableMenuItem(3, MF_ENABLED)));
        add("disable", 0, "1! 2x 3!", CALL(EnableMenuItem(1, MF_DISABLED)));
        add("enable by another bit", 3, "1 2x 3", CALL(EnableMenuItem(3, MF_CHECKED)));
        add("gray by position", 0, "1 2x! 3!", CALL(EnableMenuItem(1, MF_BYPOSITION | MF_GRAYED)));
        add("enable by position", 3, "1 2x 3", CALL(EnableMenuItem(2, MF_BYPOSITION)));
        add("enable past the end", -1, untouched, CALL(EnableMenuItem(3, MF_BYPOSITION | MF_GRAYED)));
        add("enable unknown command", -1, untouched, CALL(EnableMenuItem(7, MF_GRAYED)));
        // clang-format on
    }

    void flagWords()
    {
        QFETCH(int, result);
        QFETCH(QString, expected);
        QFETCH(Call, call);

        for (unsigned int id : {1u, 2u, 3u})
            m_menu->AppendMenu(MF_STRING, id, L"item");
        m_menu->CheckMenuItem(2, MF_CHECKED);
        m_menu->EnableMenuItem(3, MF_GRAYED);
        QPixmap red(16, 16);
        red.fill(Qt::red);
        QCOMPARE(call(*m_menu, red), result);
        QCOMPARE(layout(*m_menu).join(' '), expected);
        for (unsigned int id : {1u, 2u, 3u, 9u}) {
            const QRegularExpression token(QString(">?%1[xo!]*").arg(id));
            QCOMPARE(m_menu->GetMenuItemPos(id), expected.split(' ').indexOf(token));
            KtString text;
            if (id != 9) // even once removed
                QCOMPARE(m_menu->GetMenuString(id, text, MF_BYCOMMAND), 4);
        }
        QCOMPARE(m_menu->GetSubMenu(9) != nullptr, expected.contains(">9"));
        // A new item shows its text, or the pixmap in both modes.
        if (const int at = m_menu->GetMenuItemPos(9); at >= 0) {
            const QAction* added = m_menu->actions().at(at);
            if (added->text().isEmpty()) {
                for (QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
                    QCOMPARE(added->icon().pixmap(16, 16, mode).toImage().pixelColor(8, 8), QColor(Qt::red));
            } else {
                QCOMPARE(added->text(), QString::fromWCharArray(kText));
            }
        }
    }

    void queries()
    {
        m_menu->AppendMenu(MF_STRING, 1, L"&Open…");
        m_menu->AppendMenu(MF_SEPARATOR);
        m_menu->AppendMenu(MF_STRING, 2, L"雪\U0001D11E"); // one character outside the BMP
        m_menu->AppendMenu(MF_POPUP, 3, L"Popup");
        QMenu* added = m_menu->addMenu(QIcon(), "Added", 4);
        QAction* doomed = m_menu->addAction(QIcon(), "Doomed", 5);
        m_menu->InsertMenu(0, MF_BYPOSITION, 6, L"Orphan");

        // Registered as a menu, not an action: only GetSubMenu finds it.
        QCOMPARE(m_menu->GetMenuItemPos(4) + m_menu->EnableMenuItem(4, MF_GRAYED), -2);
        KtString text(L"kept");
        QCOMPARE(m_menu->GetMenuString(4, text, 0) + m_menu->GetMenuString(99, text, 0), 0);
        QCOMPARE(text, KtString(L"kept"));
        QCOMPARE(m_menu->GetMenuString(1, text, MF_BYPOSITION), 6);
        QCOMPARE(text, KtString(L"&Open…"));
        QCOMPARE(m_menu->GetMenuString(2, text, 0), 2); // in wide characters

        QCOMPARE(m_menu->GetSubMenu(3)->title(), QString("Popup"));
        QCOMPARE(m_menu->GetSubMenu(4), added);
        QCOMPARE(m_menu->GetSubMenu(0), nullptr); // an identifier, not position 0
        QCOMPARE(m_menu->EnableMenuItem(0, MF_GRAYED), -1); // the null entry it left is no action

        // A deleted action is forgotten rather than left dangling.
        delete doomed;
        QCOMPARE(m_menu->GetMenuItemPos(5) + m_menu->EnableMenuItem(5, MF_GRAYED), -2);
        QCOMPARE(m_menu->GetMenuString(5, text, 0) + m_menu->CheckMenuItem(5, MF_CHECKED), 0);
        // Items inserted by position go with the menu, even once removed.
        QPointer<QAction> orphan = m_menu->actions().constFirst();
        m_menu->RemoveMenu(0, MF_BYPOSITION);
        m_menu.reset();
        QVERIFY(orphan.isNull());
    }

    void subMenuForms()
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

    void trackPopupMenu_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<unsigned int>("command"); // 0: none, and TrackPopupMenu gives 0

        QTest::newRow("choose 42") << QList<int>{Qt::Key_Down, Qt::Key_Return} << 42u;
        QTest::newRow("escape") << QList<int>{Qt::Key_Escape} << 0u;
        QTest::newRow("no identifier") << QList<int>{Qt::Key_Down, Qt::Key_Down, Qt::Key_Return} << 0u;
        QTest::newRow("in a sub-menu") << QList<int>{Qt::Key_Up, Qt::Key_Right, Qt::Key_Return} << 7u;
    }

    void trackPopupMenu()
    {
        QFETCH(QList<int>, keys);
        QFETCH(unsigned int, command);

        m_menu->AppendMenu(MF_STRING, 42, L"Forty-two");
        m_menu->addAction("No identifier");
        auto* sub = new CKtMenu(m_menu.get());
        sub->AppendMenu(MF_STRING, 7, L"Seven");
        KtString title(L"More");
        m_menu->AppendMenu(sub, title, 8);
        QSignalSpy spy(m_menu.get(), &CKtMenu::commandId);

        // exec() blocks: the keys are typed from inside its event loop.
        QPoint shownAt; // where the menu itself pops up
        QTimer::singleShot(0, this, [&] {
            if (QApplication::activePopupWidget() == m_menu.get())
                shownAt = m_menu->pos();
            for (int key : keys)
                QTest::keyClick(QApplication::activePopupWidget(), Qt::Key(key));
        });
        QTimer::singleShot(5000, m_menu.get(), [] { // never stay stuck in the menu's loop
            if (QWidget* popup = QApplication::activePopupWidget())
                popup->close();
        });

        QCOMPARE(m_menu->TrackPopupMenu(TPM_RETURNCMD, 100, 50, nullptr), int(command != 0));
        QCOMPARE(shownAt, QPoint(102, 52));
        QCOMPARE(spy.size(), int(command != 0));
        if (command)
            QCOMPARE(spy.at(0).at(0), QVariant(command));
    }
};

QTEST_MAIN(TestCKtMenu)
#include "tst_cktmenu.moc"
