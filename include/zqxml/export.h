/**
 * @file
 * What marks a name as exported and gives it C linkage.
 */
#ifndef ZQXML_EXPORT_H
#define ZQXML_EXPORT_H

/** Marks a function that the shared library exports. */
#define ZQXML_API __attribute__((visibility("default")))

#ifdef __cplusplus
/** Opens the declarations that have C linkage. */
#define ZQXML_BEGIN_DECLS extern "C" {
/** Closes what `ZQXML_BEGIN_DECLS` opened. */
#define ZQXML_END_DECLS }
#else
/** Opens the declarations that have C linkage. */
#define ZQXML_BEGIN_DECLS
/** Closes what `ZQXML_BEGIN_DECLS` opened. */
#define ZQXML_END_DECLS
#endif

#endif
