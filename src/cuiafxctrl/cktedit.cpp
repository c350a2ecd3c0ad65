#include "cktedit.h"
