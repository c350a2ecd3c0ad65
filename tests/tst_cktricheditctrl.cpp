// Tests of CKtRichEditCtrl: the window text and its bold heading line.

#include <CKtRichEditCtrl>
#include <ktstringconversion.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>

#include <string>

class TestCKtRichEditCtrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void richEditHeading()
    {
        // text, its heading line, the caret afterwards, and whether the font is pixel-sized
        const std::tuple<QString, QString, int, bool> cases[]
            = {{"Title\nBody", "Title", 6, true}, {"Only", "Only", 4, false}, {QString(), "", 0, false}};
        for (const auto& [text, heading, caret, pixelFont] : cases) {
            CKtRichEditCtrl rich(nullptr);
            qreal body = rich.font().pointSizeF();
            if (pixelFont) {
                QFont font = rich.font();
                font.setPixelSize(20);
                rich.setFont(font);
                body = 20 * 72.0 / rich.logicalDpiY(); // the heading still grows by 6 points
            }
            QVERIFY(body > 0);
            rich.setPlainText("old text that is replaced");
            const std::wstring wideText = text.toStdWString();
            rich.SetWindowText(text.isNull() ? nullptr : wideText.c_str());

            KtString result;
            rich.GetWindowText(result);
            QCOMPARE(ktutKtStringToQString(result), text);
            QCOMPARE(rich.textCursor().position(), caret);
            QVERIFY(!rich.textCursor().hasSelection());

            const QTextBlock first = rich.document()->firstBlock();
            QCOMPARE(first.text(), heading);
            for (int pos = 1; pos <= heading.size(); ++pos) {
                QTextCursor at(rich.document());
                at.setPosition(pos); // the format of the character before the cursor
                QCOMPARE(at.charFormat().fontWeight(), int(QFont::Bold));
                QCOMPARE(at.charFormat().fontPointSize(), body + 6);
            }
            if (first.next().length() > 1) {
                QTextCursor at(first.next());
                at.movePosition(QTextCursor::NextCharacter);
                QVERIFY(at.charFormat().fontWeight() != QFont::Bold);
                QVERIFY(at.charFormat().fontPointSize() < body + 6);
            }
        }
    }
};

QTEST_MAIN(TestCKtRichEditCtrl)
#include "tst_cktricheditctrl.moc"
