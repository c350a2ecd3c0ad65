#pragma once

#include "kthost_export.h"

#include <QString>

#include <functional>

class QWidget;

/// Answers a message box in place of a person: (text, informative text, flags, parent) to the result.
using KtUiMessageBoxHandler
    = std::function<int(const QString& first, const QString& second, int flags, QWidget* parent)>;

/**
 * Shows the host's message box: @p first as the text, @p second as the
 * informative text, the application name as the title, and waits for the user.
 * @p flags chooses the buttons: 0 OK, 1 OK and Cancel, 4 Yes and No. Returns the
 * QMessageBox::StandardButton pressed. While a handler is set (see
 * ktuiSetMessageBoxHandler()), no window opens and the handler's answer is returned.
 */
KTHOST_EXPORT int KtUiMessageBox(
    const QString& first, const QString& second, int flags = 0, QWidget* parent = nullptr);

/// Sets the handler that answers message boxes (empty: show them); returns the one it replaces.
KTHOST_EXPORT KtUiMessageBoxHandler ktuiSetMessageBoxHandler(KtUiMessageBoxHandler handler);
