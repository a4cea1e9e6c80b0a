#pragma once
#include <windows.h>

namespace zul::platform {

// desktop_is_visible is false for a service, whose windows nobody would ever see or close.
bool desktop_is_visible();

// bring_forward makes a dialog the topmost window, enabled, with the keyboard.
void bring_forward(HWND dialog);

// fit_label gives a label a text (an empty text keeps the label's own) and the height that the text needs,
// as far as the screen allows, moves what is below it and keeps the dialog centred.
void fit_label(HWND dialog, int id, const char* text);

} // namespace zul::platform
