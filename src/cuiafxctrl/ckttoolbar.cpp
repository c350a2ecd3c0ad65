#include "ckttoolbar.h"
