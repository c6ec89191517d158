#include <QString>
