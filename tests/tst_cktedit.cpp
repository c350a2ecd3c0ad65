// Tests of CKtEdit: window text in and out, and its signal.

#include <CKtEdit>
#include <ktstringconversion.h>

#include <QSignalSpy>
#include <QtTest>

class TestCKtEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edit()
    {
        CKtEdit edit(nullptr);
        QSignalSpy spy(&edit, &QLineEdit::textChanged);
        edit.SetWindowText(L"Wand 𝄞 ü");
        QCOMPARE(spy.count(), 1); // not blocked: dialogs validate in textChanged
        KtString text;
        edit.GetWindowText(text);
        QCOMPARE(ktutKtStringToQString(text), QString::fromUtf8("Wand 𝄞 ü"));
        edit.SetWindowText(nullptr);
        QCOMPARE(edit.text(), QString());
    }
};

QTEST_MAIN(TestCKtEdit)
#include "tst_cktedit.moc"
