#include "cktcombobox.h"
