#include "cktfile.h"
