#include <windows.h>
#include <commctrl.h>

#include "platform/platform.h"
#include "platform/win32/dialog_host.h"
#include "platform/win32/dialog_ids.h"
#include "platform/win32/module_handle.h"

namespace zul::platform {

namespace {

constexpr DWORD kQuiet = 500; // milliseconds without a key, after which keys may press OK
constexpr uint32_t kReleased = 0x10000;

// load_progress_bar loads the system's library of common controls. It is not imported, because that would
// delay the start of every process that uses the module. Null if it cannot be loaded.
HMODULE load_progress_bar() {
    using Start = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    const HMODULE controls = LoadLibraryExA("comctl32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (controls == nullptr)
        return nullptr;
    const FARPROC found = GetProcAddress(controls, "InitCommonControlsEx");
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PROGRESS_CLASS};
    if (const auto start = reinterpret_cast<Start>(reinterpret_cast<void (*)()>(found)); start != nullptr)
        start(&classes);
    return controls;
}

// EntropyWindow is the dialog with a message loop of its own, which sees the keys and moves of the mouse
// before the dialog's controls do.
class EntropyWindow {
  public:
    EntropyWindow(const char* prompt, EntropyEvents& events);
    EntropyWindow(const EntropyWindow&) = delete;
    EntropyWindow& operator=(const EntropyWindow&) = delete;
    ~EntropyWindow();

    PromptEnd run();

  private:
    static INT_PTR CALLBACK on_message(HWND dialog, UINT message, WPARAM parameter, LPARAM window);
    void open(HWND dialog);
    bool takes(const MSG& message);
    void advance(int percentage);

    const char* prompt_;
    EntropyEvents& events_;
    HMODULE controls_;
    HWND owner_; // if it has been disabled
    HWND dialog_ = nullptr;
    bool complete_ = false, keysAct_ = false, closed_ = false;
    DWORD lastKey_ = 0;
};

EntropyWindow::EntropyWindow(const char* prompt, EntropyEvents& events)
    : prompt_(prompt), events_(events), controls_(load_progress_bar()) {
    // As if the dialog were modal, the window that the user was working in waits for its end.
    const HWND active = GetActiveWindow();
    owner_ = active != nullptr && !EnableWindow(active, FALSE) ? active : nullptr;
    dialog_ = CreateDialogParamA(module_handle(), "ENTROPYDIALOG", active, on_message,
                                 reinterpret_cast<LPARAM>(this));
}

EntropyWindow::~EntropyWindow() {
    if (owner_ != nullptr)
        EnableWindow(owner_, TRUE); // before the dialog goes, or another program's window would come forward
    if (dialog_ != nullptr)
        DestroyWindow(dialog_);
    if (controls_ != nullptr)
        FreeLibrary(controls_);
}

void EntropyWindow::open(HWND dialog) {
    fit_label(dialog, ZUL_ENTROPY_PROMPT, prompt_);
    fit_label(dialog, ZUL_ENTROPY_MESSAGE, "");
    SendDlgItemMessageA(dialog, ZUL_ENTROPY_PROGRESS, PBM_SETRANGE, 0, MAKELPARAM(0, 100));
    bring_forward(dialog);
    SetFocus(dialog); // no control can have it yet
}

INT_PTR CALLBACK EntropyWindow::on_message(HWND dialog, UINT message, WPARAM parameter, LPARAM window) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, window);
        reinterpret_cast<EntropyWindow*>(window)->open(dialog);
        return FALSE; // the focus is set
    }
    auto* self = reinterpret_cast<EntropyWindow*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (self == nullptr)
        return FALSE;
    const bool closes = message == WM_CLOSE || (message == WM_COMMAND &&
                                                (LOWORD(parameter) == IDOK || LOWORD(parameter) == IDCANCEL));
    if (closes && self->complete_)
        self->closed_ = true;
    if (message == WM_DESTROY)
        self->dialog_ = nullptr;
    if (self->closed_ || self->dialog_ == nullptr) // another thread may have sent this: wake the loop
        PostThreadMessageA(GetCurrentThreadId(), WM_NULL, 0, 0);
    return closes;
}

void EntropyWindow::advance(int percentage) {
    SendDlgItemMessageA(dialog_, ZUL_ENTROPY_PROGRESS, PBM_SETPOS, static_cast<WPARAM>(percentage), 0);
    if (complete_ || percentage < 100)
        return;
    complete_ = true;
    lastKey_ = static_cast<DWORD>(GetMessageTime());
    const HWND button = GetDlgItem(dialog_, IDOK);
    EnableWindow(button, TRUE);
    SetFocus(button);
    MessageBeep(MB_OK);
}

// takes is true for a message that the dialog must not see: every key at first, and then those of a user who
// is still typing and would close the dialog without having looked at it.
bool EntropyWindow::takes(const MSG& message) {
    if (message.hwnd != dialog_ && !IsChild(dialog_, message.hwnd))
        return false;
    if (message.message == WM_MOUSEMOVE || message.message == WM_NCMOUSEMOVE)
        advance(events_.mouse(message.pt.x, message.pt.y, message.time));
    if (keysAct_ || message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;

    constexpr LPARAM kWasDown = LPARAM{1} << 30; // it repeats because it is held
    const bool pressed = (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) &&
                         (message.lParam & kWasDown) == 0;
    const bool released = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
    keysAct_ = complete_ && pressed && message.time - lastKey_ > kQuiet;
    if (keysAct_)
        return false;
    lastKey_ = message.time;
    if (pressed || released)
        advance(events_.key(static_cast<uint32_t>(message.wParam) | (released ? kReleased : 0)));
    return true;
}

PromptEnd EntropyWindow::run() {
    while (dialog_ != nullptr && !closed_) {
        MSG message;
        const BOOL got = GetMessageA(&message, nullptr, 0, 0);
        if (got == 0)
            PostQuitMessage(static_cast<int>(message.wParam)); // the program's own loop has to see it too
        if (got <= 0)
            return PromptEnd::unavailable;
        if (takes(message) || IsDialogMessageA(dialog_, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return closed_ ? PromptEnd::accepted : PromptEnd::unavailable;
}

} // namespace

PromptEnd entropy_dialog(const char* prompt, EntropyEvents& events) {
    return desktop_is_visible() ? EntropyWindow(prompt, events).run() : PromptEnd::unavailable;
}

} // namespace zul::platform
