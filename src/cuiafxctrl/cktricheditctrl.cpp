#include "cktricheditctrl.h"

#include "ktstringconversion.h"

#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace {

constexpr qreal kHeadingGrowth = 6.0;

// The size the body is drawn at. Plain text carries no size of its own, so the
// document's default font (the widget's font) decides; a pixel-sized font is
// turned into points at the widget's resolution.
qreal bodyPointSize(const QTextEdit* edit, const QTextCharFormat& format)
{
    const qreal formatSize = format.fontPointSize();
    if (formatSize > 0)
        return formatSize;
    const QFont font = edit->document()->defaultFont();
    if (font.pointSizeF() > 0)
        return font.pointSizeF();
    if (font.pixelSize() > 0 && edit->logicalDpiY() > 0)
        return font.pixelSize() * 72.0 / edit->logicalDpiY();
    return edit->font().pointSizeF() > 0 ? edit->font().pointSizeF() : 0.0;
}

} // namespace

CKtRichEditCtrl::CKtRichEditCtrl(QWidget* pParent)
    : QTextEdit(pParent)
{ }

CKtRichEditCtrl::~CKtRichEditCtrl() = default;

void CKtRichEditCtrl::GetWindowText(KtString& rString)
{
    rString.assign(ktutQStringToKtString(toPlainText()));
}

void CKtRichEditCtrl::SetWindowText(const wchar_t* lpszString)
{
    setPlainText(ktutWideToQString(lpszString));

    QTextCursor cursor = textCursor();
    // The first visual line, not the first paragraph: a long first paragraph
    // that wraps gets the heading look on its first line only.
    cursor.select(QTextCursor::LineUnderCursor);
    QTextCharFormat heading;
    heading.setFontWeight(QFont::Bold);
    heading.setFontPointSize(bodyPointSize(this, cursor.charFormat()) + kHeadingGrowth);
    cursor.mergeCharFormat(heading);

    // Text of one paragraph has no second one: the caret goes after the text
    // rather than leaving the heading selected.
    if (!cursor.movePosition(QTextCursor::NextBlock))
        cursor.movePosition(QTextCursor::End);
    setTextCursor(cursor);
}
