#include "windows/frmMersenneTeiler.h"
