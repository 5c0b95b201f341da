// Takes in the whole engine without windows. That this program links and starts is the test.
#include <QCoreApplication>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return 0;
}
