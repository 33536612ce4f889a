#include "MTLogger.h"
