/*
 * The exports of libformkit.so that the host scripts call.
 *
 * `dispatch` is the host application's automation object as the scripts
 * pass it: the 32-bit handle a host got from fk_register_object()
 * (formkit/host.h), or 0. Texts are zero-terminated narrow strings. A text
 * that an export returns belongs to the library and stays valid until the
 * same export is called again.
 */
#ifndef FORMKIT_FORMKIT_H
#define FORMKIT_FORMKIT_H

#include <stdint.h>

#include "formkit/api.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Module and product. */
FK_API int InitFormkitInstance(const char *product);
FK_API int SetInstallationID(const char *id);

/* Host session. */
FK_API int ConnectToCartoma(int32_t dispatch);
FK_API int ConnectToCartomaWithoutAppCheck(int32_t dispatch);
FK_API int ConnectToCartomaWithoutAppCheckDispatch(int32_t dispatch);
FK_API int CartomaDo(int32_t dispatch, const char *statement);
FK_API const char *CartomaEval(int32_t dispatch, const char *expression);
FK_API const char *CartomaLastError(void);
FK_API int DoDDECommand(int32_t dispatch, const char *script, const char *command);
FK_API const char *GetDDEQuery(int32_t dispatch, const char *script, const char *query);
FK_API const char *GetCBXVariable(int32_t dispatch, const char *script, const char *variable);
FK_API const char *GetCartomaTableFieldValue(int32_t dispatch, const char *table, const char *column);
FK_API int GetProcessID(void);

/* Shared dialog services. `flags` holds one flag per name, in and out;
 * `path` buffers are the caller's and must hold a full path. */
FK_API int SelectFieldsDialog(const char **names, int32_t *flags, int32_t count);
FK_API int OpenFileDlg(char *path, const char *default_ext, const char *file_name, const char *filter);
FK_API int BrowseForFolder(int32_t owner, const char *title, char *path);

/* The host's files. */
FK_API int GetCartomaPenCount(const char *file);

/* DXF files, written entity by entity: DXFCreate or DXFCreateWithBounds,
   then DXFColor and the entities, then DXFClose. */
FK_API int DXFCreate(const char *file);
FK_API int DXFCreateWithBounds(const char *file, double minX, double minY, double minZ, double maxX, double maxY,
                        double maxZ);
FK_API int DXFColor(int32_t rgb);
FK_API int DXFPoint(double x, double y, double z);
FK_API int DXFLine(double x1, double y1, double z1, double x2, double y2, double z2);
FK_API int DXFPolyline(const double *x, const double *y, const double *z, int32_t count);
FK_API int DXFRegion(const double *x, const double *y, const double *z, int32_t count);
FK_API int DXFClose(void);

/* Pictures: width and height in pixels; 1, or 0 with both left as they were. */
FK_API int GetPictureSize(const char *file, int32_t *width, int32_t *height);

/* Contour segments of the grid d[i][j] (i from ilb to iub, j from jlb to
   jub, at x[i], y[j]) for the nc ascending levels z, each given to `line`. */
FK_API int Contour(const double *const *d, int32_t ilb, int32_t iub, int32_t jlb, int32_t jub, const double *x,
            const double *y, int32_t nc, const double *z,
            void (*line)(double x1, double y1, double x2, double y2, double level));

/* Settings. `value` and `directory` out-buffers belong to the caller, who
   makes them large enough: the whole text is copied (a setting's value is
   at most 1023 characters). */
FK_API int GetAppSetting(const char *section, const char *key, char *value, const char *file);
FK_API int SetAppSetting(const char *section, const char *key, const char *value, const char *file);
FK_API int GetPreferenceDirectory(int index, char *directory);
FK_API int SaveConfigDirInRegistry(const char *directory);
FK_API int SaveProjectDirectoryInRegistry(const char *directory);
FK_API int ClearAllOpenGridsInRegistry(void);
FK_API int SaveAllOpenGridsInRegistry(void);

/* News feed check. */
FK_API int GetRSSRegistry(void);
FK_API int SetRSSRegistry(int days);
FK_API int DisplayNewFeeds(void);

/* File and process utilities. */
FK_API int CopyDirectory(const char *source, const char *target);
FK_API int CreateNewDirectory(const char *directory);
FK_API int RunProgramAndWaitForExit(const char *program, const char *arguments);

#ifdef __cplusplus
}
#endif

#endif /* FORMKIT_FORMKIT_H */
