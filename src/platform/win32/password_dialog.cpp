#include <windows.h>
#include <cstring>

#include "platform/platform.h"
#include "platform/win32/dialog_host.h"
#include "platform/win32/dialog_ids.h"
#include "platform/win32/module_handle.h"

namespace zul::platform {

namespace {

struct PasswordRequest {
    const char* caption;
    const char* label;
    char* password;
    size_t size;
    PromptEnd end; // DialogBoxParam's own result may differ from what the user did
};

// fill_and_clear overwrites an edit field's memory, the text and the undo buffer, with blanks as long as any
// password. Done at first too: neither then grows, which would leave the password behind in the
// old place.
void fill_and_clear(HWND edit) {
    char blanks[512];
    memset(blanks, ' ', sizeof blanks - 1);
    blanks[sizeof blanks - 1] = '\0';
    SetWindowTextA(edit, blanks);
    SendMessageA(edit, EM_SETSEL, 0, -1);
    SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(""));
    SetWindowTextA(edit, blanks);
    SetWindowTextA(edit, "");
    SendMessageA(edit, EM_EMPTYUNDOBUFFER, 0, 0);
}

void open_dialog(HWND dialog, const PasswordRequest& request) {
    if (request.caption[0] != '\0')
        SetWindowTextA(dialog, request.caption);
    fit_label(dialog, ZUL_PASSWORD_LABEL, request.label);
    const HWND edit = GetDlgItem(dialog, ZUL_PASSWORD_EDIT);
    SendMessageA(edit, EM_LIMITTEXT, request.size - 1, 0);
    fill_and_clear(edit);
    bring_forward(dialog);
    SetFocus(edit);
}

INT_PTR CALLBACK on_message(HWND dialog, UINT message, WPARAM parameter, LPARAM request) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, request);
        open_dialog(dialog, *reinterpret_cast<const PasswordRequest*>(request));
        return FALSE; // the focus is set
    }
    auto* to = reinterpret_cast<PasswordRequest*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (message == WM_DESTROY) {
        fill_and_clear(GetDlgItem(dialog, ZUL_PASSWORD_EDIT));
        // Another thread or program may have sent this, so the dialog's loop has to be woken.
        PostThreadMessageA(GetCurrentThreadId(), WM_NULL, 0, 0);
    }
    const WORD control = LOWORD(parameter);
    if (message != WM_COMMAND || (control != IDOK && control != IDCANCEL))
        return FALSE;
    if (control == IDOK)
        GetDlgItemTextA(dialog, ZUL_PASSWORD_EDIT, to->password, static_cast<int>(to->size));
    to->end = control == IDOK ? PromptEnd::accepted : PromptEnd::cancelled;
    EndDialog(dialog, control);
    return TRUE;
}

} // namespace

PromptEnd password_dialog(const char* caption, const char* label, char* password, size_t size) {
    if (!desktop_is_visible())
        return PromptEnd::unavailable;
    PasswordRequest request{caption, label, password, size, PromptEnd::unavailable};
    // The window that the user was working in belongs to the dialog, and has to wait for its end.
    const HWND owner = GetActiveWindow();
    const bool wasEnabled = owner != nullptr && IsWindowEnabled(owner);
    DialogBoxParamA(module_handle(), "PWDDIALOG", owner, on_message, reinterpret_cast<LPARAM>(&request));
    if (wasEnabled && IsWindow(owner))
        EnableWindow(owner, TRUE); // a dialog that WM_QUIT ended may not have done it
    return request.end;
}

} // namespace zul::platform
