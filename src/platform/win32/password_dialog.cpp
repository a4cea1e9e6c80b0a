#include <windows.h>
#include <algorithm>
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
};

void open_dialog(HWND dialog, const PasswordRequest& request) {
    if (request.caption[0] != '\0')
        SetWindowTextA(dialog, request.caption);
    if (request.label[0] != '\0')
        SetDlgItemTextA(dialog, ZUL_PASSWORD_LABEL, request.label);
    fit_label(dialog, ZUL_PASSWORD_LABEL);
    SendDlgItemMessageA(dialog, ZUL_PASSWORD_EDIT, EM_LIMITTEXT, request.size - 1, 0);
    bring_forward(dialog);
    SetFocus(GetDlgItem(dialog, ZUL_PASSWORD_EDIT));
}

// overwrite_edit leaves nothing of the password in the edit field's own memory: a text of the same length is
// written into the same place.
void overwrite_edit(HWND edit) {
    char blanks[512];
    const size_t length = std::min(static_cast<size_t>(GetWindowTextLengthA(edit)), sizeof blanks - 1);
    memset(blanks, ' ', length);
    blanks[length] = '\0';
    SetWindowTextA(edit, blanks);
    SendMessageA(edit, EM_EMPTYUNDOBUFFER, 0, 0);
}

INT_PTR CALLBACK on_message(HWND dialog, UINT message, WPARAM parameter, LPARAM request) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, request);
        open_dialog(dialog, *reinterpret_cast<const PasswordRequest*>(request));
        return FALSE; // the focus is set
    }
    const WORD control = LOWORD(parameter);
    if (message != WM_COMMAND || (control != IDOK && control != IDCANCEL))
        return FALSE;
    if (control == IDOK) {
        const auto* to = reinterpret_cast<const PasswordRequest*>(GetWindowLongPtrA(dialog, DWLP_USER));
        GetDlgItemTextA(dialog, ZUL_PASSWORD_EDIT, to->password, static_cast<int>(to->size));
    }
    overwrite_edit(GetDlgItem(dialog, ZUL_PASSWORD_EDIT));
    EndDialog(dialog, control);
    return TRUE;
}

} // namespace

PromptEnd password_dialog(const char* caption, const char* label, char* password, size_t size) {
    if (!desktop_is_visible())
        return PromptEnd::unavailable;
    PasswordRequest request{caption, label, password, size};
    // The window that the user was working in belongs to the dialog, and has to wait for its end.
    const INT_PTR result = DialogBoxParamA(module_handle(), "PWDDIALOG", GetActiveWindow(), on_message,
                                           reinterpret_cast<LPARAM>(&request));
    return result == IDOK       ? PromptEnd::accepted
           : result == IDCANCEL ? PromptEnd::cancelled
                                : PromptEnd::unavailable;
}

} // namespace zul::platform
