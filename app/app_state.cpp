#include "app/app_state.h"

AppState appState;
