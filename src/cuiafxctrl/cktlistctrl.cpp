#include "cktlistctrl.h"
