#version 440

layout(location = 0) in vec4 position;
layout(location = 1) in vec2 place;
layout(location = 2) in float opacity;

layout(location = 0) out vec2 texturePlace;
layout(location = 1) out float pictureOpacity;

layout(std140, binding = 0) uniform Frame {
    mat4 matrix;
    float opacity;
} frame;

out gl_PerVertex { vec4 gl_Position; };

void main() {
    texturePlace = place;
    pictureOpacity = opacity * frame.opacity;
    gl_Position = frame.matrix * position;
}
