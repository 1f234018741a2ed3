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

/* Line styles of the host's pen file, drawn on a device context (formkit/host.h
   makes one) along `count` points, x and y pairs in device units. The style
   may move the last point back. */
FK_API void DrawCMStyleLine(int32_t dc, const char *file, int32_t index, int32_t colour, int32_t width,
                            int32_t *points, int32_t count);
/* Sizes of layout text: the height of "A", the width of the text and "XXX". */
FK_API float GetLayoutTextHeight(const char *font, int32_t size);
FK_API float GetLayoutTextLength(const char *text, const char *font, int32_t size);

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

/* Exchange with mining packages and handheld tables: each shows its
   dialog box over the host's tables (`dispatch` as for ConnectToCartoma)
   and returns 1 when the box ended with OK, its work done, else 0. */
FK_API int DatamineExport(int32_t dispatch);
FK_API int MineSightExport(int32_t dispatch);
FK_API int OGBImport(int32_t dispatch);
FK_API int ConvertHotlinks(int32_t dispatch);

/* Pictures: width and height in pixels; 1, or 0 with both left as they were. */
FK_API int GetPictureSize(const char *file, int32_t *width, int32_t *height);

/* Contour segments of the grid d[i][j] (i from ilb to iub, j from jlb to
   jub, at x[i], y[j]) for the nc ascending levels z, each given to `line`. */
FK_API int Contour(const double *const *d, int32_t ilb, int32_t iub, int32_t jlb, int32_t jub, const double *x,
            const double *y, int32_t nc, const double *z,
            void (*line)(double x1, double y1, double x2, double y2, double level));

/* Object colours of `table` to three columns (apply 0) or back from them,
   each colour byte times its factor (apply non-zero), on the table itself
   when `outputPath` is its path, else on a copy there. Mode 0: the whole
   colour, 1: bytes 0 and 2 exchanged, 2: one byte per column. Works on the
   host session that an earlier export connected. */
FK_API int ColorTableObjects(const char *table, const char *outputPath, const char *column1, const char *column2,
            const char *column3, float factor1, float factor2, float factor3, int32_t mode, int32_t apply);

/* "Window in Plain": the section plane of a layer, its origin and bearing,
   kept as the table's metadata keys. 1 when the box ended with OK. */
FK_API int SetLayerSectionPlane(int32_t dispatch);

/* "Reproject multiple tables": the ticked open tables into the projection
   picked through the product script, overwritten or as new tables. 1 when
   the box ended with OK. */
FK_API int MultiReProject(int32_t dispatch);

/* The window choosers of the add-on's script. `items` are "name" or
   "name\tsecond column"; `ticks` (one per item, above 0 ticked) and the
   method, pan flag and symbol text are written back on OK only, the symbol
   into the caller's buffer in whole. 1 on OK, else 0. The cursor position
   box works on the host session that an earlier export connected. */
FK_API int LinkWinodowListDialog(const char **items, int32_t *ticks, int32_t count, int32_t *method,
            int32_t dispatch);
FK_API int CurPosWinodowListDialog(const char **items, int32_t *ticks, int32_t count, int32_t *pan, char *symbol);

/* Workspaces. WorkspaceEditor lists the tables `workspace` opens, lets the
   user mend their paths, and on OK rewrites the file; the four flags are
   written on OK only (the two values after the path are not read).
   WorkspaceCustomSave connects and does nothing: it returns 0. */
FK_API int WorkspaceEditor(int32_t dispatch, const char *workspace, int32_t unused1, int32_t unused2,
            int32_t *noEditable, int32_t *interactive, int32_t *noPrinter, int32_t *openWorkspace);
FK_API int WorkspaceCustomSave(int32_t dispatch);
/* The workspace loader: runs `workspace` on the host statement by statement;
   1 when the box was closed with Close. */
FK_API int WorkspaceCustomLoad(int32_t dispatch, const char *workspace);

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

/* 3D viewer process. ExecuteTerravik3D answers the viewer's process id, or
   0 or below when it is not available. `version` belongs to the caller; the
   whole text is copied. */
FK_API int ExecuteTerravik3D(void);
FK_API int ShutdownTerravik3D(void);
FK_API int IsTvik3DRunning(void);
FK_API int GetTvik3DProcessID(void);
FK_API int GetTvik3DVersion(char *version);
FK_API int Tvik3DSetParent(int32_t window);

/* Loading files into the viewer. A file loaded without the permanent flag
   is temporary: deleted at unload unless saved with a 3D state. */
FK_API int LoadDXFFile(const char *file);
FK_API int LoadPermDXFFile(const char *file, int permanent);
FK_API int LoadOGBFile(const char *file);
FK_API int LoadPermOGBFile(const char *file, int permanent);
FK_API int LoadLogOGBFile(const char *file, int show);
FK_API int LoadPermLogOGBFile(const char *file, int show, int permanent);
FK_API int AddOGBFilePart(const char *file, const char *part, int load);
FK_API int ClearLogOGBFile(void);
FK_API int RemoveOGBFileIfUnused(const char *file);
FK_API int ViewGridIn3D(const char *grid);
/* A host table file the script prepared, shown as a point or a line series
   named "<name> as Points" or "<name> as Lines"; 1 when it was added. */
FK_API int LoadTabPoints(const char *name, const char *path);
FK_API int LoadTabLines(const char *name, const char *path);
/* 1 when the viewer runs and holds an open drillhole project. */
FK_API int IsDrillHoleProjectOpen(void);
/* The drillhole and trench wizards: the holes of the collar table chosen
   in a box (none with show_dialog 0), the tables whole or cut to those
   holes, and one series in the viewer restricted to them. `data_files`
   holds `data_count` paths; the two unused arguments are never read.
   1 when the series reached the viewer. */
FK_API int DrillHoleWiz(int32_t dispatch, const char *collar_table, const char *start_folder,
                        const char *collar_file, const char *survey_file, const char *unused1, const char *unused2,
                        int32_t data_count, const char **data_files, int32_t show_dialog);
FK_API int TrenchWiz(int32_t dispatch, const char *collar_table, const char *start_folder, const char *collar_file,
                     const char *survey_file, const char *unused1, const char *unused2, int32_t data_count,
                     const char **data_files, int32_t show_dialog);
FK_API int SetTempFileDeleteOnDestoy(int flag);
FK_API int SetTempFileDirectory(const char *directory);

/* A saved 3D session: the state file, the host's workspace (.wor) and the
   viewer's state (.ogs) beside it. */
FK_API int Save3DState(const char *file);
FK_API int Load3DState(const char *file);
FK_API int Refresh3D(void);

/* Selection handles: boxes in the selection file that the viewer shows.
   Each call rewrites the file whole; the box edge is the point size of the
   3D options. Nothing is written while the viewer is not running. */
FK_API int AddSelectionHandle(double x, double y, double z, double tilt, double turn);
FK_API int AddSelectionHandles(int count, const double *x, const double *y, const double *z,
                               const double *fallbackHeight, const double *tilt, const double *turn,
                               const double *height, int permanent);
FK_API int ClearSelectionHandles(void);
FK_API int SetSelectionFile(const char *path);
FK_API int SelectIn3D(const char *name, int32_t value);
FK_API int SetAssociatedCoordSystem(const char *name, const char *coordSys);

/* The 3D link manager box: 1 when it closed with Close; 0 with a message
   when no 3D window runs. */
FK_API int TempFileManager(void);

/* 3D options. Each Get answers the session value, each Set stores it and
   answers 1: raster scaling is capped at 4, and show help can only be
   switched off. The projection buffers and the temporary directory belong
   to the caller and take the whole text. Tvik3DOptions answers 1 on OK. */
FK_API int Tvik3DOptions(char *tempDirectory, int *deleteOnExit);
FK_API int Tvik3DOptionsGetPointSize(void);
FK_API int Tvik3DOptionsSetPointSize(int value);
FK_API int Tvik3DOptionsGetGridCompression(void);
FK_API int Tvik3DOptionsSetGridCompression(int value);
FK_API int Tvik3DOptionsGetRasterScaling(void);
FK_API int Tvik3DOptionsSetRasterScaling(int value);
FK_API int Tvik3DOptionsGetCartomaParent(void);
FK_API int Tvik3DOptionsSetCartomaParent(int value);
FK_API int Tvik3DOptionsGetGridClipping(void);
FK_API int Tvik3DOptionsSetGridClipping(int value);
FK_API int Tvik3DOptionsGetTransparency(void);
FK_API int Tvik3DOptionsSetTransparency(int value);
FK_API int Tvik3DOptionsGetShowHelp(void);
FK_API int Tvik3DOptionsSetShowHelp(int value);
FK_API int Tvik3DOptionsGetProjMapping(char *projection, char *description);
FK_API int Tvik3DOptionsSetProjMapping(int flag, const char *projection, const char *description);

#ifdef __cplusplus
}
#endif

#endif /* FORMKIT_FORMKIT_H */
