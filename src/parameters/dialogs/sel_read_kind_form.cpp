#include "parameters/dialogs/sel_read_kind_form.h"
