#include <GLFW/glfw3.h>
#include <Orlek/Orlek.h>

int main() {
    if (!glfwInit()) return 1;
    GLFWwindow* window = glfwCreateWindow(640, 400, "Orlek", nullptr, nullptr);
    if (window == nullptr) return 1;
    glfwMakeContextCurrent(window);
    Orlek::OpenGL::GlHandler::instance().setViewPort({640, 400});
    Orlek::OpenGL::LineLoops loop;
    loop.addLineLoop(std::vector<Orlek::Math::Vector2<float>>{{100, 80}, {540, 80}, {320, 340}});
    loop.setColor({1.0F, 0.2F, 0.9F, 1.0F});
    loop.setLineWidth(3.0F);
    while (!glfwWindowShouldClose(window)) {
        glClear(GL_COLOR_BUFFER_BIT);
        Orlek::OpenGL::MatrixLoadIdent();
        Orlek::OpenGL::MatrixTranslate(-1, -1, 0);
        Orlek::OpenGL::MatrixScale(2.0 / 640, 2.0 / 400, 1);
        loop.render(1.0);
        glfwSwapBuffers(window);
        glfwPollEvents();
    }
    loop.clear();
    glfwTerminate();
}
