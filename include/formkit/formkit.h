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

#ifdef __cplusplus
extern "C" {
#endif

/* Module and product. */
int InitFormkitInstance(const char *product);
int SetInstallationID(const char *id);

/* Host session. */
int ConnectToCartoma(int32_t dispatch);
int ConnectToCartomaWithoutAppCheck(int32_t dispatch);
int ConnectToCartomaWithoutAppCheckDispatch(int32_t dispatch);
int CartomaDo(int32_t dispatch, const char *statement);
const char *CartomaEval(int32_t dispatch, const char *expression);
const char *CartomaLastError(void);
int DoDDECommand(int32_t dispatch, const char *script, const char *command);
const char *GetDDEQuery(int32_t dispatch, const char *script, const char *query);
const char *GetCBXVariable(int32_t dispatch, const char *script, const char *variable);
const char *GetCartomaTableFieldValue(int32_t dispatch, const char *table, const char *column);
int GetProcessID(void);

/* Shared dialog services. `flags` holds one flag per name, in and out;
 * `path` buffers are the caller's and must hold a full path. */
int SelectFieldsDialog(const char **names, int32_t *flags, int32_t count);
int OpenFileDlg(char *path, const char *default_ext, const char *file_name, const char *filter);
int BrowseForFolder(int32_t owner, const char *title, char *path);

/* The host's files. */
int GetCartomaPenCount(const char *file);

/* DXF files, written entity by entity: DXFCreate or DXFCreateWithBounds,
   then DXFColor and the entities, then DXFClose. */
int DXFCreate(const char *file);
int DXFCreateWithBounds(const char *file, double minX, double minY, double minZ, double maxX, double maxY,
                        double maxZ);
int DXFColor(int32_t rgb);
int DXFPoint(double x, double y, double z);
int DXFLine(double x1, double y1, double z1, double x2, double y2, double z2);
int DXFPolyline(const double *x, const double *y, const double *z, int32_t count);
int DXFRegion(const double *x, const double *y, const double *z, int32_t count);
int DXFClose(void);

/* Pictures: width and height in pixels; 1, or 0 with both left as they were. */
int GetPictureSize(const char *file, int32_t *width, int32_t *height);

/* Contour segments of the grid d[i][j] (i from ilb to iub, j from jlb to
   jub, at x[i], y[j]) for the nc ascending levels z, each given to `line`. */
int Contour(const double *const *d, int32_t ilb, int32_t iub, int32_t jlb, int32_t jub, const double *x,
            const double *y, int32_t nc, const double *z,
            void (*line)(double x1, double y1, double x2, double y2, double level));

/* Settings. `value` and `directory` out-buffers belong to the caller, who
   makes them large enough: the whole text is copied (a setting's value is
   at most 1023 characters). */
int GetAppSetting(const char *section, const char *key, char *value, const char *file);
int SetAppSetting(const char *section, const char *key, const char *value, const char *file);
int GetPreferenceDirectory(int index, char *directory);
int SaveConfigDirInRegistry(const char *directory);
int SaveProjectDirectoryInRegistry(const char *directory);
int ClearAllOpenGridsInRegistry(void);
int SaveAllOpenGridsInRegistry(void);

/* News feed check. */
int GetRSSRegistry(void);
int SetRSSRegistry(int days);
int DisplayNewFeeds(void);

/* File and process utilities. */
int CopyDirectory(const char *source, const char *target);
int CreateNewDirectory(const char *directory);
int RunProgramAndWaitForExit(const char *program, const char *arguments);

#ifdef __cplusplus
}
#endif

#endif /* FORMKIT_FORMKIT_H */
