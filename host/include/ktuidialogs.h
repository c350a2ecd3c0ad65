#pragma once

#include "kthost_export.h"
#include "ktuipropertyobject.h"

#include <QString>

#include <functional>

class QWidget;

/**
 * @file
 * The host's dialogs by path, and its view window and keyboard focus.
 */

/// Shows a dialog: (kind, properties in and out, parent) to the dialog's result (1 accepted, 0 cancelled).
using KtUiDialogHandler = std::function<int(int kind, KtUiPropertyObject& properties, QWidget* parent)>;

/**
 * Shows the dialog registered for @p path modally and returns its result; the
 * dialog reads and writes @p properties. -1 when no dialog is registered there.
 */
KTHOST_EXPORT int ktuiShowModelDialogEx(
    const QString& path, int kind, KtUiPropertyObject& properties, QWidget* parent);

/// Registers @p handler for @p path (an empty one removes it); returns the handler it replaces.
KTHOST_EXPORT KtUiDialogHandler ktuiRegisterDialog(const QString& path, KtUiDialogHandler handler);

/// Path of the host's user-arrow dialog, which KtHost registers.
#define KT_UI_USER_ARROW_DIALOG "Dialog/CmdsUI/UserArrowDlg"

/// Gives @p widget the keyboard focus (a null widget: nothing).
KTHOST_EXPORT void ktuiSetFocus(QWidget* widget);
/// The host's drawing view window, or null when none is set.
KTHOST_EXPORT QWidget* ktuiViewWindow();
KTHOST_EXPORT void ktuiSetViewWindow(QWidget* view);
