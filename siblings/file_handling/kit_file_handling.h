/**
 * @file kit_file_handling.h
 * Stand-in for the file-handling library: its version, and the equality of texts.
 */
#ifndef KIT_FILE_HANDLING_H
#define KIT_FILE_HANDLING_H

#if defined(__GNUC__)
#define KIT_API __attribute__((visibility("default")))
#else
#define KIT_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Copies the version text ("KF_VERS_" and the number, terminated) and returns its argument. */
KIT_API char *KF_Get_lib_version(char *text);

/** Equality function of lists of texts: 1 when both texts are equal, else 0 (NULL equals nothing). */
KIT_API long KF_strcmp(const void *a, const void *b);

#ifdef __cplusplus
}
#endif

#endif
