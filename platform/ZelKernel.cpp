#include "ZelKernel.h"
