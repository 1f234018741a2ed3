/*
 * Formkit host API.
 *
 * A host program that loads libformkit.so gives the library its automation
 * object through this API. It registers the object, gets a 32-bit handle,
 * and passes that handle to the exports wherever they take a dispatch
 * pointer (ConnectToCartoma, CartomaDo, ...), exactly as its scripts would.
 *
 * An object is a table of callbacks. The library calls `invoke` with the
 * member's dispatch id, the invoke flags (1 method, 2 property get,
 * 4 property put), the arguments in their natural order, and a result to
 * fill. On failure `invoke` returns non-zero and describes the failure with
 * fk_fail(); the library raises that description as the host's error.
 * `release` (optional) is called once the library holds no reference to the
 * object any more, however often the object was handed over (registered,
 * returned from calls); an object is known by its `self` and `invoke`.
 *
 * Example: a host whose "Eval" member (dispatch id 0x6001000C) answers "42".
 *
 *   static int invoke(void *self, int32_t dispid, uint16_t flags,
 *                     fk_value *const *args, int32_t count,
 *                     fk_value *result, fk_error *error) {
 *     if (dispid == 0x6001000C && count == 1) {
 *       fk_value_set_text(result, "42");
 *       return 0;
 *     }
 *     fk_fail(error, "Unknown member.");
 *     return 1;
 *   }
 *
 *   static const fk_object host = { NULL, invoke, NULL };
 *   int32_t handle = fk_register_object(&host);
 *   ConnectToCartoma(handle);
 *   ...
 *   fk_revoke_object(handle);
 */
#ifndef FORMKIT_HOST_H
#define FORMKIT_HOST_H

#include <stdint.h>

#include "formkit/api.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Type words of automation values. */
enum {
  FK_TYPE_EMPTY = 0,
  FK_TYPE_INT = 3,      /* 32-bit int */
  FK_TYPE_DOUBLE = 5,
  FK_TYPE_TEXT = 8,
  FK_TYPE_OBJECT = 9,
  FK_TYPE_BOOL = 11,
  FK_TYPE_VARIANT = 12, /* element type of a list of mixed values */
  FK_TYPE_ARRAY = 0x2000,
  FK_TYPE_BYREF = 0x4000
};

/* Invoke flags. */
enum { FK_METHOD = 1, FK_GET = 2, FK_PUT = 4 };

typedef struct fk_value fk_value; /* a value owned by the library */
typedef struct fk_error fk_error; /* where a failing call puts its description */

typedef struct fk_object {
  void *self;
  int (*invoke)(void *self, int32_t dispid, uint16_t flags, fk_value *const *args, int32_t count,
                fk_value *result, fk_error *error);
  void (*release)(void *self);
} fk_object;

/* Registers an object and returns its handle (never 0); 0 when `object` or
 * its invoke callback is missing. The table is copied. */
FK_API int32_t fk_register_object(const fk_object *object);
/* Drops the registration; 1 when the handle was known. */
FK_API int fk_revoke_object(int32_t handle);
/* Makes a registered object the running object of its class (for example
 * "Cartoma.Application"), found by exports that connect with no handle. */
FK_API int fk_register_active_object(const char *prog_id, int32_t handle);
FK_API int fk_revoke_active_object(const char *prog_id);

/* Reading a value. A reference argument reads as the value it refers to;
 * fk_value_type shows the type word as it travels, 0x4000 included. A
 * conversion that makes no sense gives 0 or an empty text. Texts stay valid
 * for the rest of the call. */
FK_API uint16_t fk_value_type(const fk_value *value);
FK_API int32_t fk_value_int(const fk_value *value);
FK_API int fk_value_bool(const fk_value *value);
FK_API double fk_value_double(const fk_value *value);
FK_API const char *fk_value_text(const fk_value *value);

/* Arrays: element type, lower bound, count and the element at an index
 * counted from the lower bound (NULL outside the bounds). */
FK_API uint16_t fk_value_array_element_type(const fk_value *value);
FK_API int32_t fk_value_array_lower_bound(const fk_value *value);
FK_API int32_t fk_value_array_count(const fk_value *value);
FK_API const fk_value *fk_value_array_element(const fk_value *value, int32_t index);

/* Writing the result, or an argument passed by reference (written through).
 * Each returns 1, or 0 when the value can't take it. */
FK_API int fk_value_set_empty(fk_value *value);
FK_API int fk_value_set_int(fk_value *value, int32_t number);
FK_API int fk_value_set_bool(fk_value *value, int flag);
FK_API int fk_value_set_double(fk_value *value, double number);
FK_API int fk_value_set_text(fk_value *value, const char *text);
/* An object to give back (a collection, a script); NULL gives a null object. */
FK_API int fk_value_set_object(fk_value *value, const fk_object *object);

/* Describes the failure of the current call. */
FK_API void fk_fail(fk_error *error, const char *description);

/* Device contexts, which DrawCMStyleLine takes by handle: a white picture
 * file of width x height device units (one unit a pixel) at `dpi` dots per
 * inch, a PNG, SVG or PDF by the path's extension. Its handle (never 0), or
 * 0 when the picture can't be made. */
FK_API int32_t fk_create_file_dc(const char *path, int32_t width, int32_t height, int32_t dpi);
/* Writes the picture and drops the handle; 1 when the file was written. */
FK_API int fk_close_dc(int32_t handle);

#ifdef __cplusplus
}
#endif

#endif /* FORMKIT_HOST_H */
