// The table of the celestial pole, read-only data of the file that tools/pole_table.cpp makes when the library is
// built.
#include "orientation/pole_layout.h"

// The assembler is told the numbers of pole_layout.h in text.
#define X_OFFSET 0
#define Y_OFFSET 219244
#define S_OFFSET 438488
#define S_SIZE 109622
static_assert(kPoleXOffset == X_OFFSET && kPoleYOffset == Y_OFFSET && kPoleSOffset == S_OFFSET
              && kPoleFileSize == S_OFFSET + S_SIZE);

#define TEXT_OF(number) #number
#define TEXT(number) TEXT_OF(number)
#define TABLE(name, offset, size)                                                                                      \
    ".globl " name "\n"                                                                                                \
    ".hidden " name "\n"                                                                                               \
    ".type " name ", %object\n"                                                                                        \
    ".size " name ", " size "\n" name ":\n"                                                                            \
    ".incbin \"" POLE_FILE "\", " offset ", " size "\n"

// clang-format off
__asm__(".pushsection .rodata.pole, \"a\", %progbits\n"
        ".balign 64\n"
        TABLE("kl_pole_x", TEXT(X_OFFSET), TEXT(Y_OFFSET))
        TABLE("kl_pole_y", TEXT(Y_OFFSET), TEXT(Y_OFFSET))
        TABLE("kl_pole_s", TEXT(S_OFFSET), TEXT(S_SIZE))
        ".popsection\n");
// clang-format on
