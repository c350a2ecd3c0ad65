#include "cktarchive.h"
