// Defines the identities that the generated header declares.
#include <initguid.h>

#include "quor_toolset_com.h"
