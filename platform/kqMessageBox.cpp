#include "kqMessageBox.h"
