/**
 * @file kl/version.h
 * Version of the library: the one place where it stands. The build, the packages and pkg-config read it from here.
 */
#ifndef KL_VERSION_H
#define KL_VERSION_H

#define KL_VERSION_MAJOR 4
#define KL_VERSION_MINOR 27
#define KL_VERSION_PATCH 1
#define KL_VERSION_NUMBER (KL_VERSION_MAJOR * 10000 + KL_VERSION_MINOR * 100 + KL_VERSION_PATCH) /* for #if */
#define KL_VERSION_TEXT_(major, minor, patch) #major "." #minor "." #patch
#define KL_VERSION_TEXT(major, minor, patch) KL_VERSION_TEXT_(major, minor, patch)
#define KL_VERSION KL_VERSION_TEXT(KL_VERSION_MAJOR, KL_VERSION_MINOR, KL_VERSION_PATCH) /* "4.27.1" */

#endif
