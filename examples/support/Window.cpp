// GLFW's callbacks, turned into functions of the caller.
#include "Window.h"

#include <GLFW/glfw3.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace OrlekSupport {

namespace {

std::string lastError() {
    const char* reason = nullptr;
    glfwGetError(&reason);
    return reason == nullptr ? "unknown reason" : reason;
}

// What stands on a key in the layout of its user; where that is no letter of ours, in the American.
std::string printedName(int key, int scancode) {
    const char* const printed = glfwGetKeyName(key, scancode);
    const char first = printed != nullptr && std::strlen(printed) == 1 ? *printed : '\0';
    if (first >= 'a' && first <= 'z') {
        return std::string(1, static_cast<char>(first - 'a' + 'A'));
    }
    if (first == '+' || first == '=' || first == '-') {
        return first == '-' ? "-" : "+";
    }
    return key >= GLFW_KEY_A && key <= GLFW_KEY_Z
               ? std::string(1, static_cast<char>('A' + key - GLFW_KEY_A))
               : std::string();
}

std::string keyName(int key, int scancode) {
    switch (key) {
        case GLFW_KEY_SPACE:
            return "Space";
        case GLFW_KEY_LEFT:
            return "Left";
        case GLFW_KEY_RIGHT:
            return "Right";
        case GLFW_KEY_UP:
            return "Up";
        case GLFW_KEY_DOWN:
            return "Down";
        case GLFW_KEY_KP_ADD:
            return "+";
        case GLFW_KEY_KP_SUBTRACT:
            return "-";
        default:
            return printedName(key, scancode);
    }
}

// Held down, a switch would go to and fro.
bool mayRepeat(const std::string& name) {
    return name == "+" || name == "-" || (name.size() > 1 && name != "Space");
}

}  // namespace

struct Window::Glfw {
    GLFWwindow* window = nullptr;
    KeyHandler key;
    DragHandler drag;
    ScrollHandler scroll;
    bool dragging = false;
    double lastX = 0.0;
    double lastY = 0.0;

    Glfw() {
        if (glfwInit() != GLFW_TRUE) {
            throw std::runtime_error("cannot open a window: " + lastError());
        }
    }

    ~Glfw() {
        if (window != nullptr) {
            glfwDestroyWindow(window);
        }
        glfwTerminate();
    }

    Glfw(const Glfw&) = delete;
    Glfw& operator=(const Glfw&) = delete;

    static Glfw& of(GLFWwindow* window) {
        return *static_cast<Glfw*>(glfwGetWindowUserPointer(window));
    }

    void open(const std::string& title, int width, int height);
    void listen();

    static void keyPressed(GLFWwindow* window, int key, int scancode, int action, int mods);
    static void buttonPressed(GLFWwindow* window, int button, int action, int mods);
    static void mouseMoved(GLFWwindow* window, double x, double y);
    static void wheelTurned(GLFWwindow* window, double x, double y);
};

void Window::Glfw::open(const std::string& title, int width, int height) {
    glfwWindowHint(GLFW_CONTEXT_VERSION_MAJOR, 3);
    glfwWindowHint(GLFW_CONTEXT_VERSION_MINOR, 3);
    glfwWindowHint(GLFW_OPENGL_PROFILE, GLFW_OPENGL_COMPAT_PROFILE);
    glfwWindowHint(GLFW_ALPHA_BITS, 0);  // nothing shines through where blending left some alpha
    glfwWindowHint(GLFW_SCALE_TO_MONITOR, GLFW_TRUE);  // X11; Wayland always does
    window = glfwCreateWindow(width, height, title.c_str(), nullptr, nullptr);
    if (window == nullptr) {
        throw std::runtime_error("no window with an OpenGL 3.3 compatibility profile: " +
                                 lastError());
    }
    glfwMakeContextCurrent(window);
    glfwSwapInterval(1);
    glfwSetWindowUserPointer(window, this);
}

void Window::Glfw::listen() {
    glfwSetKeyCallback(window, &Glfw::keyPressed);
    glfwSetMouseButtonCallback(window, &Glfw::buttonPressed);
    glfwSetCursorPosCallback(window, &Glfw::mouseMoved);
    glfwSetScrollCallback(window, &Glfw::wheelTurned);
}

void Window::Glfw::keyPressed(GLFWwindow* window, int key, int scancode, int action, int /*mods*/) {
    if (key == GLFW_KEY_ESCAPE) {
        glfwSetWindowShouldClose(window, GLFW_TRUE);
    }
    const std::string name = keyName(key, scancode);
    const bool pressed = action == GLFW_PRESS || (action == GLFW_REPEAT && mayRepeat(name));
    if (pressed && !name.empty() && of(window).key) {
        of(window).key(name);
    }
}

void Window::Glfw::buttonPressed(GLFWwindow* window, int button, int action, int /*mods*/) {
    if (button == GLFW_MOUSE_BUTTON_LEFT) {
        Glfw& self = of(window);
        self.dragging = action == GLFW_PRESS;
        glfwGetCursorPos(window, &self.lastX, &self.lastY);
    }
}

void Window::Glfw::mouseMoved(GLFWwindow* window, double x, double y) {
    Glfw& self = of(window);
    if (self.dragging && self.drag) {
        int width = 1;
        int pixels = 1;
        glfwGetWindowSize(window, &width, nullptr);
        glfwGetFramebufferSize(window, &pixels, nullptr);
        const double density = static_cast<double>(pixels) / std::max(width, 1);
        self.drag((x - self.lastX) * density, (y - self.lastY) * density);
    }
    self.lastX = x;
    self.lastY = y;
}

void Window::Glfw::wheelTurned(GLFWwindow* window, double /*x*/, double y) {
    if (of(window).scroll) {
        of(window).scroll(y);
    }
}

Window::Window(const std::string& title, int width, int height) : mGlfw(std::make_unique<Glfw>()) {
    mGlfw->open(title, width, height);
    mGlfw->listen();
}

Window::~Window() = default;

void Window::onKey(KeyHandler handler) {
    mGlfw->key = std::move(handler);
}

void Window::onDrag(DragHandler handler) {
    mGlfw->drag = std::move(handler);
}

void Window::onScroll(ScrollHandler handler) {
    mGlfw->scroll = std::move(handler);
}

bool Window::isOpen() const {
    return glfwWindowShouldClose(mGlfw->window) == GLFW_FALSE;
}

void Window::showFrame() {
    glfwSwapBuffers(mGlfw->window);
    glfwPollEvents();
}

std::pair<int, int> Window::framebufferSize() const {
    std::pair<int, int> size;
    glfwGetFramebufferSize(mGlfw->window, &size.first, &size.second);
    return size;
}

double Window::contentScale() const {
    float scale = 1.0F;
    glfwGetWindowContentScale(mGlfw->window, &scale, nullptr);
    return scale;
}

double Window::seconds() const {
    return glfwGetTime();
}

}  // namespace OrlekSupport
