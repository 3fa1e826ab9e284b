// The table of the celestial pole, read-only data of the file that tools/pole_table.cpp makes when the library is
// built.
#include "numbers/binary_table.h"
#include "orientation/pole_layout.h"

// The assembler is told the numbers of pole_layout.h in text.
#define XY_OFFSET 0
#define S_OFFSET 438488
#define S_SIZE 109622
static_assert(kPoleXyOffset == XY_OFFSET && kPoleSOffset == S_OFFSET && kPoleFileSize == S_OFFSET + S_SIZE);

// clang-format off
__asm__(".pushsection .rodata.pole, \"a\", %progbits\n"
        ".balign 64\n"
        KL_BINARY_TABLE(POLE_FILE, "kl_pole_xy", KL_TEXT(XY_OFFSET), KL_TEXT(S_OFFSET))
        KL_BINARY_TABLE(POLE_FILE, "kl_pole_s", KL_TEXT(S_OFFSET), KL_TEXT(S_SIZE))
        ".popsection\n");
// clang-format on
