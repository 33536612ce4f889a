#include "kqMovableObject.h"
