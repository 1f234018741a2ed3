// The series wizards: host tables of a drillhole or trench project shown
// in the viewer. Both connect with the application check, then run the one
// procedure with their own constants.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"
#include "wizards/series_wizard.h"

namespace {

// Arguments 6 and 7 are never read.
int RunWizard(const SeriesWizardKind& kind, int32_t dispatch, const char* collarTable, const char* startFolder,
              const char* collarFile, const char* surveyFile, int32_t dataCount, const char* const* dataFiles,
              int32_t showDialog) {
  SeriesWizardArgs args;
  args.collarFile = TextArg(collarFile);
  args.surveyFile = TextArg(surveyFile);
  for (int32_t i = 0; dataFiles && i < dataCount; ++i) args.dataFiles.push_back(TextArg(dataFiles[i]));
  args.collarTable = TextArg(collarTable);
  args.startFolder = TextArg(startFolder);
  args.showDialog = showDialog != 0;
  theApp.Connect(dispatch, 1);
  return RunSeriesWizard(theApp.Viewer3D(), theApp.GetTempDirectory(), kind, args);
}

}  // namespace

extern "C" int DrillHoleWiz(int32_t dispatch, const char* collarTable, const char* startFolder, const char* collarFile,
                            const char* surveyFile, const char*, const char*, int32_t dataCount, const char** dataFiles,
                            int32_t showDialog) {
  return fk::GuardedCall("DrillHoleWiz", 0, [&] {
    return RunWizard(DRILLHOLE_WIZARD, dispatch, collarTable, startFolder, collarFile, surveyFile, dataCount, dataFiles,
                     showDialog);
  });
}

extern "C" int TrenchWiz(int32_t dispatch, const char* collarTable, const char* startFolder, const char* collarFile,
                         const char* surveyFile, const char*, const char*, int32_t dataCount, const char** dataFiles,
                         int32_t showDialog) {
  return fk::GuardedCall("TrenchWiz", 0, [&] {
    return RunWizard(TRENCH_WIZARD, dispatch, collarTable, startFolder, collarFile, surveyFile, dataCount, dataFiles,
                     showDialog);
  });
}
