// Read-only tables that the assembler takes from a file made when the library is built; as C arrays they would be
// megabytes of source.
#ifndef KL_SRC_NUMBERS_BINARY_TABLE_H
#define KL_SRC_NUMBERS_BINARY_TABLE_H

#define KL_TEXT_OF(number) #number
#define KL_TEXT(number) KL_TEXT_OF(number)

// File, name, offset in the file and size in bytes: all four as text.
#define KL_BINARY_TABLE(file, name, offset, size)                                                                      \
    ".globl " name "\n"                                                                                                \
    ".hidden " name "\n"                                                                                               \
    ".type " name ", %object\n"                                                                                        \
    ".size " name ", " size "\n" name ":\n"                                                                            \
    ".incbin \"" file "\", " offset ", " size "\n"

#endif
