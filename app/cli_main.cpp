#include <cstdio>
int main() {
    std::puts("control-obras-cli");
    return 0;
}
