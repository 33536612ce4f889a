#include "zelAction.h"
