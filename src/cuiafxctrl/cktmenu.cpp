#include "cktmenu.h"
