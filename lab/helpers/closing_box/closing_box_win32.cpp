// Shows two message boxes one after the other. The first closes while it is being read, without an answer.

#include "platform/windows_win32.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
  const HWND first = CreateWindowExW(0, L"#32770", L"First", WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, 0, 200,
                                     100, nullptr, nullptr, nullptr, nullptr);
  // Returns when another program has sent a message, and leaves it in the queue.
  MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_SENDMESSAGE);
  DestroyWindow(first);
  MessageBoxW(nullptr, L"Text", L"Second", MB_OK);
  return 0;
}
