#include "parameters/sel_read_kind_form.h"
