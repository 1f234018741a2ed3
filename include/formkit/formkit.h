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

/* The host's files. */
int GetCartomaPenCount(const char *file);

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
