#include "kqDMIApplication.h"
