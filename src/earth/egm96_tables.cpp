// The tables of egm96_tables.h: read-only data of the file that tools/egm96_tables.cpp makes when the library is built.
#include "earth/egm96_tables.h"

#include "numbers/binary_table.h"

// The assembler is told the numbers of egm96_layout.h in text.
#define TABLE_SIZE 522728
#define PACKED_OFFSET 2090944
#define PACKED_SIZE 2131456
static_assert(TABLE_SIZE == kEgm96TableSize && PACKED_OFFSET == kEgm96PackedOffset && PACKED_SIZE == kEgm96PackedSize);

// clang-format off
__asm__(".pushsection .rodata.egm96, \"a\", %progbits\n"
        ".balign 64\n"
        KL_BINARY_TABLE(EGM96_FILE, "HC_EGM96", "0", KL_TEXT(TABLE_SIZE))
        KL_BINARY_TABLE(EGM96_FILE, "HS_EGM96", KL_TEXT(TABLE_SIZE), KL_TEXT(TABLE_SIZE))
        KL_BINARY_TABLE(EGM96_FILE, "CC_EGM96", KL_TEXT(2 * TABLE_SIZE), KL_TEXT(TABLE_SIZE))
        KL_BINARY_TABLE(EGM96_FILE, "CS_EGM96", KL_TEXT(3 * TABLE_SIZE), KL_TEXT(TABLE_SIZE))
        ".balign 64\n"
        KL_BINARY_TABLE(EGM96_FILE, "egm96_packed", KL_TEXT(PACKED_OFFSET), KL_TEXT(PACKED_SIZE))
        ".popsection\n");
// clang-format on
