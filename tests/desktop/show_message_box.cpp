// Shows one message box and prints the number of the button that was pressed.
//   show_message_box 48|324 TEXT TITLE
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "platform/posix/message_box_desktop.h"
#include "runtime/utf8.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: show_message_box 48|324 TEXT TITLE\n", stderr);
    return EXIT_FAILURE;
  }
  try {
    vandpublic::DesktopMessageBoxes boxes;
    const int answer = boxes.Show(vandpublic::FromUtf8(argv[2]), vandpublic::FromUtf8(argv[3]),
                                  std::atoi(argv[1]));
    std::printf("%d\n", answer);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "show_message_box: %s\n", error.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
