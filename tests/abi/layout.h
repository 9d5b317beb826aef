/* Assertions about the layout of a record, checked by the compiler. */
#ifndef ZQXML_TESTS_ABI_LAYOUT_H
#define ZQXML_TESTS_ABI_LAYOUT_H

#include <assert.h>
#include <stddef.h>

#define SIZE(record, bytes) static_assert(sizeof(record) == (bytes), "size of " #record)
#define ALIGNED(record, bytes) static_assert(_Alignof(record) == (bytes), "alignment of " #record)
#define AT(record, member, offset) \
  static_assert(offsetof(record, member) == (offset), "place of " #record "." #member)
#define WIDTH(record, member, bytes) \
  static_assert(sizeof(((record*)0)->member) == (bytes), "size of " #record "." #member)
#define STRIDE(list, bytes) static_assert(sizeof(*((list*)0)->items) == (bytes), "stride of " #list)

#endif
