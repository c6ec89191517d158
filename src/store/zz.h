#include "reports/x.h"
