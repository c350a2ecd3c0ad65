#include "cktricheditctrl.h"
