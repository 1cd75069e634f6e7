#version 330 core
// A skinned animal coloured from the palette (penguins, seals): the vertex stream holds only
// the palette coordinates; the position of vertex i for the current pose comes from the
// animation table: column i % width of the block of chunk i / width, at the row of the pose.
// uVertex1: model-view-projection matrix.
// uVertex2: the table's width in texels (vertices per chunk).
// uVertex3: 1 / the table's height in texels.
// uVertexTexture0: the table, RGBA16F, xyz = position.
// uVertex4: width as a float; half a texel's width; the pose's row coordinate (centre of the
//           row inside the first block); the height of one block as a share of the table.

layout(location = 0) in vec2 aUv;

uniform mat4 uVertex1;
uniform int uVertex2;
uniform float uVertex3;
uniform sampler2D uVertexTexture0;
uniform vec4 uVertex4;

out vec2 vUv;

void main() {
    int width = max(uVertex2, 1);
    int chunk = gl_VertexID / width;
    int column = gl_VertexID - chunk * width;
    float rowCoordinate = float(chunk) * uVertex4.w + uVertex4.z;
    int row = int(rowCoordinate / uVertex3);
    vec3 position = texelFetch(uVertexTexture0, ivec2(column, row), 0).xyz;
    vUv = aUv;
    gl_Position = uVertex1 * vec4(position, 1.0);
}
