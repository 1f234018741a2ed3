// The four sibling products served by one build, and what differs per
// product. The variant itself lives in g_Cartoma.m_nProductVariant.
#pragma once

enum ProductVariant {
  VARIANT_TERRAVIK = 0,
  VARIANT_ZELVAR = 1,
  VARIANT_ZELVAR3D = 2,
  VARIANT_VIGILPROFILER = 3,
};

struct ProductVariantInfo {
  const char* pszName;            // the name a script gives InitFormkitInstance
  const char* pszScript;          // the host script that identifies the product
  const char* pszSetupKey;        // registry key of setup values
  const char* pszMessagesKey;     // registry key of messages
  const char* pszSettingsKey;     // registry key of 3D settings
  const char* pszAppDataFolder;   // folder under the user's application data
  const char* pszProfileName;     // the framework's profile name
  const char* pszHelp;            // help parameters of the dialog boxes
  const char* pszCurPosHelp;      // help parameters of the cursor position box
};

// The row of `variant`, or null for a value outside the four.
const ProductVariantInfo* GetProductVariantInfo(int variant);

// The variant named by `name`, compared ignoring case in the order
// Terravik, Zelvar3D, Zelvar, Vigilprofiler; -1 for any other name.
int ProductVariantFromName(const char* name);
