// Exports of the module frame: the product and the installation.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "host/product_variant.h"
#include "platform/app/module_guard.h"

extern "C" int InitFormkitInstance(const char* product) {
  return fk::GuardedCall("InitFormkitInstance", 1, [&] {
    theApp.m_strProduct = TextArg(product);
    const int variant = ProductVariantFromName(theApp.m_strProduct.c_str());
    if (variant >= 0) g_Cartoma.m_nProductVariant = variant;
    return 1;
  });
}

extern "C" int SetInstallationID(const char* id) {
  return fk::GuardedCall("SetInstallationID", 1, [&] {
    theApp.m_strInstallationID = TextArg(id);
    return 1;
  });
}
