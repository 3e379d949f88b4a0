#version 440

layout(location = 0) in vec2 texturePlace;
layout(location = 1) in float pictureOpacity;

layout(location = 0) out vec4 colour;

layout(binding = 1) uniform sampler2D picture;

void main() {
    colour = texture(picture, texturePlace) * pictureOpacity; // colours are premultiplied
}
