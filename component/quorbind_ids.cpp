// Defines the identities that the generated header declares.
#include <initguid.h>

#include "quorbind_com.h"
