// The tables of egm96_tables.h: read-only data of the file that tools/egm96_tables.cpp makes when the library is built.
// The assembler takes the bytes as they are; as C arrays they would be 12 MB of source.
#include "earth/egm96_tables.h"

// The assembler is told the numbers of egm96_layout.h in text.
#define TABLE_SIZE 522728
#define PACKED_OFFSET 2090944
#define PACKED_SIZE 2131456
static_assert(TABLE_SIZE == kEgm96TableSize && PACKED_OFFSET == kEgm96PackedOffset && PACKED_SIZE == kEgm96PackedSize);

#define TEXT_OF(number) #number
#define TEXT(number) TEXT_OF(number)

// name, offset in the file, size in bytes: all three as text
#define TABLE(name, offset, size)                                                                                      \
    ".globl " name "\n"                                                                                                \
    ".hidden " name "\n"                                                                                               \
    ".type " name ", %object\n"                                                                                        \
    ".size " name ", " size "\n" name ":\n"                                                                            \
    ".incbin \"" EGM96_FILE "\", " offset ", " size "\n"

// clang-format off
__asm__(".pushsection .rodata.egm96, \"a\", %progbits\n"
        ".balign 64\n"
        TABLE("HC_EGM96", "0", TEXT(TABLE_SIZE))
        TABLE("HS_EGM96", TEXT(TABLE_SIZE), TEXT(TABLE_SIZE))
        TABLE("CC_EGM96", TEXT(2 * TABLE_SIZE), TEXT(TABLE_SIZE))
        TABLE("CS_EGM96", TEXT(3 * TABLE_SIZE), TEXT(TABLE_SIZE))
        ".balign 64\n"
        TABLE("egm96_packed", TEXT(PACKED_OFFSET), TEXT(PACKED_SIZE))
        ".popsection\n");
// clang-format on
