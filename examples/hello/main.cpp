#include <GLFW/glfw3.h>
#include <Orlek/Orlek.h>

int main() {
    glfwInit();
    GLFWwindow* window = glfwCreateWindow(640, 400, "Orlek", nullptr, nullptr);
    if (window == nullptr) return 1;
    glfwMakeContextCurrent(window);
    Orlek::OpenGL::LineLoops loop;
    loop.addLineLoop(std::vector<Orlek::Math::Vector2<float>>{{-0.8F, -0.7F}, {0.8F, -0.7F}, {0, 0.8F}});
    loop.setColor({1, 0.2F, 0.9F, 1});
    Orlek::OpenGL::MatrixLoadIdent();
    while (!glfwWindowShouldClose(window)) {
        int width = 0, height = 0;
        float scale = 1;
        glfwGetFramebufferSize(window, &width, &height);
        glfwGetWindowContentScale(window, &scale, nullptr);
        glViewport(0, 0, width, height);
        Orlek::OpenGL::GlHandler::instance().setViewPort({float(width), float(height)});
        glClear(GL_COLOR_BUFFER_BIT);
        loop.setLineWidth(3 * scale);
        loop.render(1.0);
        glfwSwapBuffers(window);
        glfwPollEvents();
    }
}
