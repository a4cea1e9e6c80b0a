#include "platform/win32/dialog_host.h"

#include <algorithm>
#include <atomic>

namespace zul::platform {

void end_prompt(std::atomic<bool>& isTaken) {
    isTaken = false; // no signals here
}

bool desktop_is_visible() {
    USEROBJECTFLAGS flags{};
    return !GetUserObjectInformationA(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) ||
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

void bring_forward(HWND dialog) {
    EnableWindow(dialog, TRUE);
    ShowWindow(dialog, SW_SHOW);
    SetWindowPos(dialog, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    SetForegroundWindow(dialog);
}

namespace {

RECT place_in(HWND dialog, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(HWND_DESKTOP, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

LONG height_of_text(HWND label, const char* text, LONG width) {
    RECT area{0, 0, width, 0};
    const HDC context = GetDC(label);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(label, WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(context, font);
    if (text[0] != '\0')
        DrawTextA(context, text, -1, &area,
                  DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_EXPANDTABS | DT_NOPREFIX);
    SelectObject(context, before);
    ReleaseDC(label, context);
    return area.bottom;
}

} // namespace

void fit_label(HWND dialog, int id, const char* text) {
    const HWND label = GetDlgItem(dialog, id);
    char own[512];
    if (text[0] != '\0') {
        SetWindowTextA(label, text);
    } else {
        GetWindowTextA(label, own, sizeof own);
        text = own;
    }
    const RECT old = place_in(dialog, label);
    const LONG width = old.right - old.left;
    RECT frame{};
    GetWindowRect(dialog, &frame);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& screen = monitor.rcWork;

    const LONG room = (screen.bottom - screen.top) - (frame.bottom - frame.top);
    const LONG growth = std::min(height_of_text(label, text, width) - (old.bottom - old.top), room);
    SetWindowPos(label, nullptr, 0, 0, width, old.bottom - old.top + growth, SWP_NOMOVE | SWP_NOZORDER);
    for (HWND other = GetWindow(dialog, GW_CHILD); other != nullptr; other = GetWindow(other, GW_HWNDNEXT)) {
        const RECT place = place_in(dialog, other);
        if (other != label && place.top >= old.bottom)
            SetWindowPos(other, nullptr, place.left, place.top + growth, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }
    const LONG height = frame.bottom - frame.top + growth;
    const LONG top =
        std::clamp(frame.top - growth / 2, screen.top, std::max(screen.top, screen.bottom - height));
    SetWindowPos(dialog, nullptr, frame.left, top, frame.right - frame.left, height, SWP_NOZORDER);
}

} // namespace zul::platform
